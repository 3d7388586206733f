#pragma once

#include <QObject>
#include <QString>

class ShellPages;
class ShellWindow;
class QAction;

// The View menu's editor settings: panel, gutter, margins, guides, invisible
// characters, soft tabs and wrapping, completion, tab size, wrap limit, font and theme.
// Each action stores the default first and then sends the script built from
// the stored value. Items carry their action's name as object name; the
// validator enables every item and sets its check mark from the defaults.
class LWViewMenuController : public QObject
{
    Q_OBJECT

public:
    // The utility pane and the window's layout are shown through the pages and the window.
    LWViewMenuController(ShellPages &pages, ShellWindow &window);

    Q_INVOKABLE bool validateMenuItem(QAction *item) const;

public slots:
    // Window layout: each stores its default, then shows or hides its part.
    void toggleSidebarAction(QAction *sender = nullptr);
    void toggleTabsAction(QAction *sender = nullptr);
    void toggleStatusBarAction(QAction *sender = nullptr);

    void togglePanelAction(QAction *sender = nullptr);
    void toggleGutterAction(QAction *sender = nullptr);
    void togglePrintMarginAction(QAction *sender = nullptr);
    void toggleIndentationGuidesAction(QAction *sender = nullptr);
    void toggleInvisiblesAction(QAction *sender = nullptr);
    void useSoftTabsToggle(QAction *sender = nullptr);
    void useWordWrapToggle(QAction *sender = nullptr);
    // Words, keywords and snippets offered while typing; Tab expands a snippet.
    void toggleCompletionAction(QAction *sender = nullptr);

    // The tab size and wrap limit items take their number from their titles.
    void tabSize2Switch(QAction *sender);
    void tabSize4Switch(QAction *sender);
    void tabSize8Switch(QAction *sender);
    void tabSize12Switch(QAction *sender);
    void tabSizeSwitch(int size);
    void wrapLimits40Switch(QAction *sender);
    void wrapLimits80Switch(QAction *sender);
    void wrapLimits120Switch(QAction *sender);
    void wrapLimitsAutomaticSwitch(QAction *sender = nullptr);
    void wrapLimitsSwitch(int limit);

    void fontZoomInAction(QAction *sender = nullptr);
    void fontZoomOutAction(QAction *sender = nullptr);
    // From the preferences: sent after the current event has finished.
    void setFontSize(int size);
    void setFontName(const QString &family);

    // The item's data holds the LWTheme to apply.
    void setThemeAction(QAction *sender);

    // Shows or hides the utility pane; hiding it halts the running plugin.
    void toggleUtilityViewAction(QAction *sender = nullptr);

    // Moves typing from the editor to the terminal console, or back.
    void toggleTerminalFocusAction(QAction *sender = nullptr);

private:
    void zoomBy(int steps);
    void flipLayout(const QString &key, void (ShellWindow::*show)(bool));

    ShellPages &pages;
    ShellWindow &window;
};
