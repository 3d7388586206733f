#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>

class LWSpec;

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

    // Extension menus: the run button's visibility, and rebuilding the Themes
    // menu after the user adds a theme.
    virtual void setRunButtonVisible(bool visible) = 0;
    virtual void updateThemesMenu() = 0;

    // Dialogs attached to the main window. Each returns at once; the completion
    // runs when the user answers, and cancelling calls nothing.
    virtual void showAlert(const QString &title, const QString &informativeText,
                           const std::function<void()> &dismissed) = 0;
    // OK/Cancel confirmation: the answer is 1 for "OK", 0 for "Cancel".
    virtual void showConfirmation(const QString &title, const QString &informativeText,
                                  const std::function<void(int)> &answered) = 0;
    // One text field whose placeholder is defaultValue; answers the typed text on "OK".
    virtual void showInput(const QString &title, const QString &defaultValue,
                           const std::function<void(const QString &)> &accepted) = 0;
    // A slider; moved (may be empty) hears every movement, accepted the value on "OK".
    virtual void showSlider(const QString &title, double minimum, double maximum, double value,
                            const std::function<void(double)> &moved,
                            const std::function<void(double)> &accepted) = 0;

    // The utility pane under the editor and the page it shows.
    virtual bool isUtilityViewVisible() = 0;
    virtual void openUtilityView() = 0;
    virtual void closeUtilityView() = 0;
    virtual void setUtilityLabel(const QString &label) = 0;
    virtual void loadUtilityHTML(const QString &html) = 0;
    virtual void loadUtilityHTML(const QString &html, const QString &basePath) = 0;
    // A path (leading "/") or URL; cookies are objects with "domain", "path", "name", "value".
    virtual void loadUtilityHTMLFile(const QString &pathOrURL, const QVariantList &cookies) = 0;
    virtual void loadUtilityEditor(const QString &content, const QString &mode) = 0;
    // The utility pane's plugin pop-up: hidden for no titles, else the titles after its title item.
    virtual void setUtilityPluginMenu(const QStringList &titles) = 0;

    // The specification pop-up's title and the plugin menus of one specification.
    virtual void setSpecPopupTitle(const QString &title) = 0;
    virtual void updatePluginMenusForSpec(LWSpec *spec) = 0;
};
