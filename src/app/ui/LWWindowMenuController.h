#pragma once

#include <QString>

class ShellOutline;
class TabBarView;
class TabClosing;

// The Window menu's commands and the File menu's closing ones: stepping
// through the sidebar's documents (its file rows) and through the tabs, and
// closing the active tab or every tab.
class LWWindowMenuController
{
public:
    LWWindowMenuController(TabBarView &tabBar, ShellOutline &outline, TabClosing &closing);

    void nextDocumentAction();
    void previousDocumentAction();
    // The tabs in bar order, going round from the last to the first.
    void nextTabAction();
    void previousTabAction();
    void closeTabAction();
    void closeAllAction();

    // Next and previous document only when the sidebar has such a row, next
    // and previous tab only with another tab to go to.
    bool validateMenuItem(const QString &action) const;

private:
    void stepTab(int step);

    TabBarView &tabBar;
    ShellOutline &outline;
    TabClosing &closing;
};
