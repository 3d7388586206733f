#include "app/LWHelpMenuController.h"

#include "app/LWPaths.h"

#include <QDesktopServices>
#include <QUrlQuery>

namespace {

void openInBrowser(const QUrl &page)
{
    if (!QDesktopServices::openUrl(page))
        qWarning("No browser opened %s", qPrintable(page.toString()));
}

}

QUrl LWHelpMenuController::homePage()
{
    return QUrl(QStringLiteral("https://larkwood.dev/"));
}

QUrl LWHelpMenuController::documentationPage()
{
    return homePage().resolved(QUrl(QStringLiteral("docs/")));
}

QUrl LWHelpMenuController::supportPage()
{
    QUrl page = homePage().resolved(QUrl(QStringLiteral("support/")));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("v"),
                       QStringLiteral(LARKWOOD_VERSION "b%1").arg(LWPaths::buildNumber()));
    page.setQuery(query);
    return page;
}

QString LWHelpMenuController::versionText()
{
    return QStringLiteral(LARKWOOD_VERSION " (build %1)").arg(LWPaths::buildNumber());
}

void LWHelpMenuController::showHelp()
{
    openInBrowser(documentationPage());
}

void LWHelpMenuController::showSupport()
{
    openInBrowser(supportPage());
}
