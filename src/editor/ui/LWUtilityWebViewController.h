#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>

class LWBridgePage;
class QWebEngineView;
class QWidget;

// The utility page in the lower pane: plugin HTML, files and addresses, and a
// read-only second editor. HTML strings handed in are taken as derived from
// documents and load without the native bridge; document text goes only to
// the program's own utility page. Every load other than loadEditorHTML()
// clears editorMode, so a later finished load leaves the page alone.
class LWUtilityWebViewController : public QObject
{
    Q_OBJECT

public:
    LWUtilityWebViewController(QObject *backend, QWidget *viewParent);

    QWebEngineView *view() const { return webView; }
    LWBridgePage *page() const { return bridgePage; }
    QString editorContent() const { return content; }
    QString editorMode() const { return mode; }

    QString evaluate(const QString &script);

    void loadHTML(const QString &html);
    // basePath is resolved against the utility page's address, so a relative
    // path points inside "Data/Html".
    void loadHTML(const QString &html, const QString &basePath);
    // A path when it starts with "/", otherwise an address. Each cookie is an
    // object with "domain", "path", "name" and "value"; incomplete ones are
    // left out and the rest are sent as the request's Cookie header.
    void loadHTMLFile(const QString &pathOrURL, const QVariantList &cookies = {});
    // Shows content in the read-only editor; a page already showing mode only
    // gets the new state.
    void loadEditorHTML(const QString &editorText, const QString &editorModeName);

signals:
    void pageLoaded();

private:
    void finishLoad();
    // Whether the page is the program's own utility page with the bridge:
    // the only page that is sent document text.
    bool showsEditorPage() const;
    // Puts the editor state into the page when it already shows shownMode,
    // else loads the utility editor page first.
    void showEditor(const QString &shownMode);
    void applyEditorLook();
    QString editorState() const;

    QWebEngineView *webView;
    LWBridgePage *bridgePage;
    QString content;
    QString mode;
};
