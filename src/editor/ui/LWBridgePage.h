#pragma once

#include <QString>
#include <QUrl>
#include <QWebEnginePage>

#include <functional>

class QWebChannel;
class QWebEngineHttpRequest;

// A page that may reach the native backend published as "core". The channel
// is attached only while the page shows one of the program's own pages: a
// shell page file, or a trusted file (see TrustedPages) the program or an
// already trusted page asked for. HTML taken from documents or plugins,
// remote addresses and files elsewhere load without it, and a page without
// it may not open a trusted file. Attaching the channel reaches the document
// on screen too, so a trusted load that replaces an untrusted document first
// loads a blank page and starts only once that has finished; nothing waits.
class LWBridgePage : public QWebEnginePage
{
    Q_OBJECT

public:
    // Publishes backend as "core" through a channel of the page's own.
    LWBridgePage(QObject *backend, QObject *parent = nullptr);

    // Loads one of the program's own page files: its text as UTF-8 with the
    // file's address as base, with the bridge when the file is trusted.
    void loadShellPage(const QString &path);

    // Loads HTML that came from a document or a plugin, never with the
    // bridge; baseUrl may be empty.
    void loadDocumentHTML(const QString &html, const QUrl &baseUrl);

    // Loads a file or remote address the program asked for; only a trusted
    // file gets the bridge.
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

    // Whether the page shows the shell page file at path with the bridge.
    bool showsShellPage(const QString &path) const;

signals:
    // A load the program asked for (or the page made) has finished; the
    // blank page that replaces an untrusted document is not reported.
    void contentLoaded(bool ok);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;

private:
    void attachBridge(bool attach);
    // Runs load with the bridge attached, after blanking an untrusted page.
    void loadTrusted(const std::function<void()> &load);
    void finishUnloading(bool cleared);
    void setHTML(const QString &html, const QUrl &baseUrl);
    void startProgramLoad(bool trusted);

    QWebChannel *bridge;
    bool programLoadPending = false;
    bool unloading = false;
    std::function<void()> queuedTrustedLoad;
    QString shownShellPage;
};
