#include "editor/ui/LWBridgePage.h"

#include "app/LWPaths.h"
#include "editor/PageCall.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <QWebEngineHttpRequest>
#include <QWebChannel>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

#include <memory>

namespace {

constexpr int evaluationTimeoutMilliseconds = 60000;
constexpr int unloadTimeoutMilliseconds = 10000;
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

bool isInside(const QString &path, const QString &folder)
{
    const QString root = QDir::cleanPath(folder) + QLatin1Char('/');
    return path.startsWith(root);
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
}

bool LWBridgePage::isTrustedFile(const QUrl &url)
{
    if (!url.isLocalFile())
        return false;
    const QString path = QFileInfo(url.toLocalFile()).absoluteFilePath();
    const QString canonical = QFileInfo(path).canonicalFilePath();
    const QString checked = canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
    for (const QString &root : {LWPaths::resourceFolder(), LWPaths::dataRoot()}) {
        const QString canonicalRoot = QFileInfo(root).canonicalFilePath();
        if (isInside(checked, canonicalRoot.isEmpty() ? root : canonicalRoot))
            return true;
    }
    return false;
}

void LWBridgePage::loadShellHTML(const QString &html, const QUrl &baseUrl)
{
    const bool trusted = baseUrl.isEmpty() || isTrustedFile(baseUrl);
    if (trusted)
        unloadUntrustedDocument();
    shellLoadPending = true;
    shellLoadTrusted = trusted;
    attachBridge(trusted);
    const QByteArray bytes = html.toUtf8();
    if (bytes.size() > htmlStringLimit)
        qWarning("HTML of %lld bytes is too large to load as a string (the engine takes about %lld); "
                 "the page will stay empty",
                 static_cast<long long>(bytes.size()), static_cast<long long>(htmlStringLimit));
    setContent(bytes, QStringLiteral("text/html;charset=UTF-8"), baseUrl);
}

void LWBridgePage::loadShellRequest(const QWebEngineHttpRequest &request)
{
    const bool trusted = isTrustedFile(request.url());
    if (trusted)
        unloadUntrustedDocument();
    shellLoadPending = false;
    attachBridge(trusted);
    load(request);
}

bool LWBridgePage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    // Only a main frame gets the channel's transport, so frames load freely.
    if (!isMainFrame)
        return true;
    const bool fromShell = shellLoadPending && type == NavigationTypeTyped;
    shellLoadPending = false;
    const bool trusted = fromShell ? shellLoadTrusted : isTrustedFile(url);
    if (!trusted && isBridgeAttached())
        qInfo("Page at %s runs without the native bridge", qPrintable(url.toDisplayString().left(200)));
    attachBridge(trusted);
    return true;
}

void LWBridgePage::unloadUntrustedDocument()
{
    if (isBridgeAttached() || url().isEmpty() || url().scheme() == QLatin1String("about"))
        return;
    QEventLoop loop;
    connect(this, &QWebEnginePage::loadFinished, &loop, &QEventLoop::quit);
    QTimer::singleShot(unloadTimeoutMilliseconds, &loop, &QEventLoop::quit);
    unloading = true;
    shellLoadPending = false;
    setUrl(QUrl(QStringLiteral("about:blank")));
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    unloading = false;
}

void LWBridgePage::attachBridge(bool attach)
{
    if (attach != isBridgeAttached())
        setWebChannel(attach ? bridge : nullptr);
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
