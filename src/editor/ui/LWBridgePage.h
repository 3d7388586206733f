#pragma once

#include <QString>
#include <QUrl>
#include <QWebEnginePage>

#include <functional>

class QWebChannel;
class QWebEngineHttpRequest;

// A page that may reach the native backend published as "core". The channel
// is attached only while the page shows local content the program trusts: a
// file under the resource folder or the data root, or an HTML string the
// program itself loads with no base or a trusted one. Any other navigation
// (http, https, a page-made data: URL, a file elsewhere) detaches it first,
// so such a page cannot call into the backend. Attaching the channel reaches
// the document on screen too, so an untrusted document is unloaded before
// trusted content replaces it.
class LWBridgePage : public QWebEnginePage
{
    Q_OBJECT

public:
    // Publishes backend as "core" through a channel of the page's own.
    LWBridgePage(QObject *backend, QObject *parent = nullptr);

    // Loads an HTML string the program produced; baseUrl may be empty.
    void loadShellHTML(const QString &html, const QUrl &baseUrl);

    // Loads a file or remote address the program asked for.
    void loadShellRequest(const QWebEngineHttpRequest &request);

    // Runs script after every script sent before it, without waiting.
    void send(const QString &script);

    // Runs script and hands its value to answered when it is a string, ""
    // otherwise; never waits.
    void evaluate(const QString &script, const std::function<void(const QString &)> &answered);

    // Evaluates script and waits for it; answers its value when it is a
    // string, "" otherwise (and after a timeout, which is logged). Never
    // waits inside a page's call into the backend (see PageCall).
    QString evaluate(const QString &script);

    // Whether the current page can reach "core".
    bool isBridgeAttached() const;

    // Local files under the resource folder or the data root.
    static bool isTrustedFile(const QUrl &url);

signals:
    // A load the program asked for (or the page made) has finished; the
    // blank page that replaces an untrusted document is not reported.
    void contentLoaded(bool ok);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;

private:
    void attachBridge(bool attach);
    void unloadUntrustedDocument();

    QWebChannel *bridge;
    bool shellLoadPending = false;
    bool shellLoadTrusted = false;
    bool unloading = false;
};
