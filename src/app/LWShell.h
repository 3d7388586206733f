#pragma once

#include <QString>

// The window side of the application as the core library sees it: evaluating
// scripts in the editor pages, the status bar, the outline, the tab bar,
// dialogs and plugin menus. The UI library implements it; tests of the core
// library install a recording double.
class LWShell
{
public:
    virtual ~LWShell() = default;

    // The shell in use, or nullptr before one is installed (callers then skip
    // interface work rather than fail).
    static LWShell *instance();
    static void setInstance(LWShell *shell);

    // Editor pages: evaluate a script and answer its string value ("" for any
    // non-string or undefined result).
    virtual QString evaluateInEditor(const QString &script) = 0;
    virtual QString evaluateInUtility(const QString &script) = 0;

    // Status bar trio.
    virtual void setStatusMessage(const QString &message) = 0;
    virtual void setStatusSpinnerRunning(bool running) = 0;
    virtual void setLocationText(const QString &text) = 0;

    // Alerts the user must act on.
    virtual void showAlert(const QString &title, const QString &informativeText) = 0;

    // Extension menus: the run button's visibility, and rebuilding the plugin
    // menus (for the current document's specification) or the Themes menu
    // after the user adds a bundle.
    virtual void setRunButtonVisible(bool visible) = 0;
    virtual void updatePluginMenus() = 0;
    virtual void updateThemesMenu() = 0;
};
