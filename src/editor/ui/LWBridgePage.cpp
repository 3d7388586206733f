#include "editor/ui/LWBridgePage.h"

#include "editor/PageCall.h"
#include "editor/TrustedPages.h"
#include "editor/ui/PageFile.h"

#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QWebEngineHttpRequest>
#include <QWebEngineLoadingInfo>
#include <QWebChannel>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

#include <memory>

namespace {

constexpr int evaluationTimeoutMilliseconds = 60000;
// The engine loads HTML strings as encoded data URLs, which it caps at 2 MB.
constexpr qsizetype htmlStringLimit = 2 * 1024 * 1024;

// The client side of the channel, present in every document so that the
// page can connect with new QWebChannel(qt.webChannelTransport, ...).
QWebEngineScript channelClientScript()
{
    QFile source(QStringLiteral(":/qtwebchannel/qwebchannel.js"));
    if (!source.open(QIODevice::ReadOnly))
        qWarning("The web channel client script is missing; pages cannot reach the backend");
    QWebEngineScript script;
    script.setName(QStringLiteral("qwebchannel"));
    script.setSourceCode(QString::fromUtf8(source.readAll()));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(false);
    return script;
}

const QUrl blankPage()
{
    return QUrl(QStringLiteral("about:blank"));
}

}

LWBridgePage::LWBridgePage(QObject *backend, QObject *parent)
    : QWebEnginePage(parent), bridge(new QWebChannel(this))
{
    bridge->registerObject(QStringLiteral("core"), backend);
    scripts().insert(channelClientScript());
    connect(this, &QWebEnginePage::loadFinished, this, [this](bool ok) {
        if (!unloading)
            emit contentLoaded(ok);
    });
    connect(this, &QWebEnginePage::loadingChanged, this, [this](const QWebEngineLoadingInfo &info) {
        // Only the blank page's own end counts: the document it replaces may
        // still report its load ending meanwhile. The trusted load starts
        // from the event loop, after every signal of this load has gone out.
        if (!unloading || info.url() != blankPage() || info.status() == QWebEngineLoadingInfo::LoadStartedStatus)
            return;
        const bool cleared = info.status() == QWebEngineLoadingInfo::LoadSucceededStatus;
        QMetaObject::invokeMethod(this, [this, cleared] { finishUnloading(cleared); }, Qt::QueuedConnection);
    });
}

void LWBridgePage::loadShellPage(const QString &path)
{
    const QUrl address = QUrl::fromLocalFile(path);
    const QString html = PageFile::text(path);
    if (!TrustedPages::isTrustedFile(address)) {
        qWarning("The page %s lies outside the program's own files; it loads without the native bridge",
                 qPrintable(path));
        loadDocumentHTML(html, address);
        return;
    }
    loadTrusted([this, html, address, path] {
        startProgramLoad(true);
        shownShellPage = path;
        setHTML(html, address);
    });
}

void LWBridgePage::loadDocumentHTML(const QString &html, const QUrl &baseUrl)
{
    startProgramLoad(false);
    setHTML(html, baseUrl);
}

void LWBridgePage::loadShellRequest(const QWebEngineHttpRequest &request)
{
    if (!TrustedPages::isTrustedFile(request.url())) {
        startProgramLoad(false);
        load(request);
        return;
    }
    loadTrusted([this, request] {
        startProgramLoad(true);
        load(request);
    });
}

void LWBridgePage::startProgramLoad(bool trusted)
{
    if (!trusted) {
        // A later untrusted load replaces any trusted one still waiting.
        unloading = false;
        queuedTrustedLoad = nullptr;
    }
    shownShellPage.clear();
    programLoadPending = true;
    attachBridge(trusted);
}

void LWBridgePage::setHTML(const QString &html, const QUrl &baseUrl)
{
    const QByteArray bytes = html.toUtf8();
    if (bytes.size() > htmlStringLimit)
        qWarning("HTML of %lld bytes is too large to load as a string (the engine takes about %lld); "
                 "the page will stay empty",
                 static_cast<long long>(bytes.size()), static_cast<long long>(htmlStringLimit));
    setContent(bytes, QStringLiteral("text/html;charset=UTF-8"), baseUrl);
}

void LWBridgePage::loadTrusted(const std::function<void()> &load)
{
    // A trusted document, or none yet, may see the bridge before the load.
    if (isBridgeAttached() || url().isEmpty()) {
        load();
        return;
    }
    if (!unloading) {
        startProgramLoad(false);
        unloading = true;
        setUrl(blankPage());
    }
    queuedTrustedLoad = load;
}

void LWBridgePage::finishUnloading(bool cleared)
{
    if (!unloading)  // a later untrusted load has taken over
        return;
    unloading = false;
    const std::function<void()> load = std::exchange(queuedTrustedLoad, nullptr);
    if (!cleared) {
        qWarning("The page could not be cleared before a trusted load; that load is dropped");
        emit contentLoaded(false);
        return;
    }
    load();
}

bool LWBridgePage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    // Only a main frame gets the channel's transport, so frames load freely.
    if (!isMainFrame)
        return true;
    // The program's own load has set the bridge up already.
    if (std::exchange(programLoadPending, false) && type == NavigationTypeTyped)
        return true;
    shownShellPage.clear();
    const bool trusted = TrustedPages::isTrustedFile(url);
    if (trusted && !isBridgeAttached()) {
        qWarning("A page without the native bridge may not open %s; navigation refused",
                 qPrintable(url.toDisplayString().left(200)));
        return false;
    }
    if (!trusted && isBridgeAttached())
        qInfo("Page at %s runs without the native bridge", qPrintable(url.toDisplayString().left(200)));
    attachBridge(trusted);
    return true;
}

void LWBridgePage::attachBridge(bool attach)
{
    if (attach != isBridgeAttached())
        setWebChannel(attach ? bridge : nullptr);
}

bool LWBridgePage::showsShellPage(const QString &path) const
{
    return isBridgeAttached() && !shownShellPage.isEmpty() && shownShellPage == path;
}

bool LWBridgePage::isBridgeAttached() const
{
    return webChannel() != nullptr;
}

void LWBridgePage::send(const QString &script)
{
    runJavaScript(script);
}

void LWBridgePage::evaluate(const QString &script, const std::function<void(const QString &)> &answered)
{
    runJavaScript(script, [answered](const QVariant &value) {
        answered(value.typeId() == QMetaType::QString ? value.toString() : QString());
    });
}

QString LWBridgePage::evaluate(const QString &script)
{
    if (!PageCall::mayWait("evaluating a script"))
        return QString();
    // The answer outlives this call when the page answers after the timeout.
    struct Answer
    {
        QString text;
        bool finished = false;
        QEventLoop loop;
    };
    const auto answer = std::make_shared<Answer>();
    runJavaScript(script, [answer](const QVariant &value) {
        if (value.typeId() == QMetaType::QString)
            answer->text = value.toString();
        answer->finished = true;
        answer->loop.quit();
    });
    if (!answer->finished) {
        QTimer::singleShot(evaluationTimeoutMilliseconds, &answer->loop, &QEventLoop::quit);
        answer->loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (!answer->finished)
        qWarning("Script evaluation gave no answer within %d s: %s", evaluationTimeoutMilliseconds / 1000,
                 qPrintable(script.left(120)));
    return answer->text;
}
