#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>
#include <memory>

class LWDocument;
class LWSpec;
class QImage;

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

    // Editor pages. sendToEditor() queues a script behind every script sent
    // before it and returns at once; nothing waits for the page. The
    // evaluate calls wait for the script's string value ("" for any
    // non-string or undefined result) and are only for the shell's own
    // events: a page cannot answer while one of its calls into the backend
    // is being handled (see PageCall).
    virtual void sendToEditor(const QString &script) = 0;
    virtual QString evaluateInEditor(const QString &script) = 0;
    // Evaluates script without waiting and hands its string value to answered.
    virtual void evaluateInEditor(const QString &script, const std::function<void(const QString &)> &answered) = 0;
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
    // Two buttons named by the caller: answers 1 for the default one, 0 for the other.
    virtual void showChoice(const QString &title, const QString &informativeText, const QString &defaultButton,
                            const QString &otherButton, const std::function<void(int)> &answered) = 0;
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

    // Window layout: the sidebar, the tab bar and the status bar.
    virtual void setSidebarVisible(bool visible) = 0;
    virtual void setTabBarVisible(bool visible) = 0;
    virtual void setStatusBarVisible(bool visible) = 0;

    // The language specification pop-up's title and the plugin menus of one specification.
    virtual void setSpecPopupTitle(const QString &title) = 0;
    virtual void updatePluginMenusForSpec(LWSpec *spec) = 0;

    // Main window: its title, the editor's loading spinner, and what fills
    // the editor area: the editor itself, or an image preview in its place
    // (both also hide the binary preview).
    virtual void setWindowTitle(const QString &title) = 0;
    virtual void setLoadingSpinnerVisible(bool visible) = 0;
    virtual void showEditorView() = 0;
    virtual void showImagePreview(const QImage &image) = 0;

    // Visibility of the status message and the status spinner.
    virtual void setStatusMessageVisible(bool visible) = 0;
    virtual void setStatusSpinnerVisible(bool visible) = 0;

    // Sidebar outline. Selecting a node expands its parents first; expanding
    // null expands every top-level item with all its children.
    virtual void reloadOutline() = 0;
    virtual void selectInOutline(const std::shared_ptr<LWDocument> &document) = 0;
    virtual void expandInOutline(const std::shared_ptr<LWDocument> &document, bool withChildren) = 0;
    virtual std::shared_ptr<LWDocument> selectedInOutline() = 0;
    // The sidebar menu's "Open in New Tab" for the selected row.
    virtual void openOutlineSelectionInNewTab() = 0;

    // Tab bar: a new active tab for a node and the selected tab's title.
    virtual void addTabWithDocument(const std::shared_ptr<LWDocument> &document) = 0;
    virtual void setSelectedTabTitle(const QString &title) = 0;

    // Workspace bookkeeping: the node the outline selects once it is shown,
    // and the desktop's recent-documents list.
    virtual void setDocumentToSelect(const std::shared_ptr<LWDocument> &document) = 0;
    virtual void noteRecentDocument(const QString &path) = 0;

    // Open and save dialogs answer the chosen path (links resolved); an
    // empty file-type list allows every file. Printing plain text.
    virtual void showOpenDialog(bool files, bool folders, const QStringList &fileTypes,
                                const std::function<void(const QString &)> &chosen) = 0;
    virtual void showSaveDialog(const std::function<void(const QString &)> &chosen) = 0;
    virtual void printText(const QString &text) = 0;
};
