#include "editor/ui/LWWebViewController.h"

#include "app/LWPaths.h"
#include "editor/ui/LWBridgePage.h"
#include "editor/ui/TextOfferSchemeHandler.h"

#include <QWebEngineView>

LWWebViewController::LWWebViewController(QObject *backend, QWidget *viewParent)
    : QObject(viewParent),
      webView(new QWebEngineView(viewParent)),
      bridgePage(new LWBridgePage(backend, webView))
{
    TextOfferSchemeHandler::installOn(bridgePage->profile());
    webView->setPage(bridgePage);
    connect(bridgePage, &LWBridgePage::contentLoaded, this, &LWWebViewController::pageLoaded);
    loadEditorPage();
}

void LWWebViewController::loadEditorPage()
{
    bridgePage->loadShellPage(LWPaths::dataPath(QStringLiteral("Data/Html/index.html")));
}

void LWWebViewController::send(const QString &script)
{
    bridgePage->send(script);
}

QString LWWebViewController::evaluate(const QString &script)
{
    return bridgePage->evaluate(script);
}
