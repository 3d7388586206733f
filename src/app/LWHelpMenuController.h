#pragma once

#include <QString>
#include <QUrl>

// The Help menu's web pages: the documentation, and the support page told
// which release asks ("v" = short version, "b", build number).
class LWHelpMenuController
{
public:
    static QUrl homePage();
    static QUrl documentationPage();
    static QUrl supportPage();
    // "0.1.0 (build 1)".
    static QString versionText();

    // Open the pages in the desktop's browser; a failure is logged.
    void showHelp();
    void showSupport();
};
