#include "editor/ui/LWUtilityWebViewController.h"

#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"
#include "app/roles/ShellStatusBar.h"
#include "editor/ui/LWBridgePage.h"
#include "editor/ui/PageFile.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QStringList>
#include <QUrl>
#include <QWebEngineHttpRequest>
#include <QWebEngineView>

namespace {

QUrl urlFromPathOrAddress(const QString &pathOrURL)
{
    return pathOrURL.startsWith(QLatin1Char('/')) ? QUrl::fromLocalFile(pathOrURL) : QUrl(pathOrURL);
}

QByteArray cookieHeader(const QVariantList &cookies)
{
    static const QStringList requiredKeys = {QStringLiteral("domain"), QStringLiteral("path"),
                                             QStringLiteral("name"), QStringLiteral("value")};
    QByteArrayList pairs;
    for (const QVariant &cookie : cookies) {
        const QVariantMap fields = cookie.toMap();
        const bool complete = std::all_of(requiredKeys.begin(), requiredKeys.end(),
                                          [&](const QString &key) { return fields.contains(key); });
        if (!complete) {
            qInfo("Cookie left out, it lacks one of domain, path, name, value");
            continue;
        }
        pairs.append(fields.value(QStringLiteral("name")).toString().toUtf8() + '='
                     + fields.value(QStringLiteral("value")).toString().toUtf8());
    }
    return pairs.join("; ");
}

}

LWUtilityWebViewController::LWUtilityWebViewController(QObject *backend, QWidget *viewParent)
    : QObject(viewParent),
      webView(new QWebEngineView(viewParent)),
      bridgePage(new LWBridgePage(backend, webView))
{
    webView->setPage(bridgePage);
    connect(bridgePage, &LWBridgePage::contentLoaded, this, &LWUtilityWebViewController::finishLoad);
}

QString LWUtilityWebViewController::evaluate(const QString &script)
{
    return bridgePage->evaluate(script);
}

void LWUtilityWebViewController::loadHTML(const QString &html)
{
    mode.clear();
    bridgePage->loadDocumentHTML(html, QUrl());
}

void LWUtilityWebViewController::loadHTML(const QString &html, const QString &basePath)
{
    const QUrl base = QUrl::fromLocalFile(PageFile::utilityPagePath()).resolved(QUrl(basePath));
    qInfo("Loading URL: %s", qPrintable(base.toString()));
    qInfo("PATH: %s", qPrintable(base.isLocalFile() ? base.toLocalFile() : base.toString()));
    mode.clear();
    bridgePage->loadDocumentHTML(html, base);
}

void LWUtilityWebViewController::loadHTMLFile(const QString &pathOrURL, const QVariantList &cookies)
{
    const QUrl url = urlFromPathOrAddress(pathOrURL);
    qInfo("Loading HTML: %s\n(%s)", qPrintable(pathOrURL), qPrintable(url.toString()));
    QWebEngineHttpRequest request(url);
    const QByteArray cookiesValue = cookieHeader(cookies);
    if (!cookiesValue.isEmpty())
        request.setHeader("Cookie", cookiesValue);
    mode.clear();
    bridgePage->loadShellRequest(request);
}

void LWUtilityWebViewController::loadEditorHTML(const QString &editorText, const QString &editorModeName)
{
    content = editorText;
    mode = editorModeName;
    // Only the program's own utility page is asked, and without waiting:
    // this may run inside a page's call.
    if (!showsEditorPage()) {
        bridgePage->loadShellPage(PageFile::utilityPagePath());
        return;
    }
    const QPointer<LWUtilityWebViewController> self(this);
    bridgePage->evaluate(QStringLiteral("lw.getMode();"), [self, editorModeName](const QString &shown) {
        if (self && self->mode == editorModeName)  // else a later load has taken over
            self->showEditor(shown);
    });
}

bool LWUtilityWebViewController::showsEditorPage() const
{
    return bridgePage->showsShellPage(PageFile::utilityPagePath());
}

void LWUtilityWebViewController::showEditor(const QString &shownMode)
{
    if (shownMode == mode && showsEditorPage())
        bridgePage->send(QStringLiteral("lw.setState(%1);").arg(editorState()));
    else
        bridgePage->loadShellPage(PageFile::utilityPagePath());
}

QString LWUtilityWebViewController::editorState() const
{
    const QJsonObject state{{QStringLiteral("content"), content},
                            {QStringLiteral("mode"), mode},
                            {QStringLiteral("readOnly"), true}};
    return QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact));
}

void LWUtilityWebViewController::finishLoad()
{
    if (ShellPages *pages = ShellRoles::pages())
        pages->openUtilityView();
    if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
        statusBar->setStatusMessage(QString());
        statusBar->setStatusSpinnerRunning(false);
    }
    if (!mode.isEmpty() && showsEditorPage())
        applyEditorLook();
    emit pageLoaded();
}

void LWUtilityWebViewController::applyEditorLook()
{
    bridgePage->send(QStringLiteral("lw.setState(%1);").arg(editorState()));
    bridgePage->send(QStringLiteral("$('.panel-tabs').hide();"));
    const QPointer<LWBridgePage> page(bridgePage);
    const auto themeAndWorker = [page](QString theme) {
        theme.remove(QStringLiteral("ace/theme/"));
        if (!page)
            return;
        page->send(QStringLiteral("lw.setTheme('%1');").arg(theme));
        page->send(QStringLiteral("lw.editor.getSession().setUseWorker(false);"));
    };
    // The main page's theme is asked for without waiting: this may run
    // inside a page's call.
    if (ShellPages *pages = ShellRoles::pages())
        pages->evaluateInEditor(QStringLiteral("lw.editor.renderer.$themeId"), themeAndWorker);
    else
        themeAndWorker(QString());
}
