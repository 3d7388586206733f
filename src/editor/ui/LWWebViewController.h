#pragma once

#include <QObject>
#include <QString>

class LWBridgePage;
class QWebEngineView;
class QWidget;

// The main editor page: loads "Data/Html/index.html" of the data root as
// text with the file's own address as base, publishes the backend as "core"
// and reports every finished load.
class LWWebViewController : public QObject
{
    Q_OBJECT

public:
    LWWebViewController(QObject *backend, QWidget *viewParent);

    QWebEngineView *view() const { return webView; }
    LWBridgePage *page() const { return bridgePage; }

    // Sends script to the page without waiting.
    void send(const QString &script);
    // Evaluates script in the page and answers its string value.
    QString evaluate(const QString &script);

signals:
    // The page finished loading (successfully or not).
    void pageLoaded();

private:
    void loadEditorPage();

    QWebEngineView *webView;
    LWBridgePage *bridgePage;
};
