#pragma once

#include "app/LWOpenRequest.h"
#include "app/LWShell.h"

#include <QObject>
#include <QStringList>

#include <memory>

class LWBackend;
class LWDefaultsController;
class LWDocumentManager;
class LWDocumentMenuController;
class LWEditMenuController;
class LWEnvironment;
class LWFileMenuController;
class LWFindMenuController;
class LWMainWindow;
class LWPluginsMenuController;
class LWUIController;
class LWTabBarController;
class LWWindowMenuController;
class TabClosing;
class SearchCommands;
class PreferencesCommands;
class RemoteFolderActions;
class RemoteFolderTransfers;
class LWUtilityWebViewController;
class LWViewMenuController;
class LWWebViewController;

// The application's service locator and its window: creates the shared
// collaborators in start-up order (registry, backend, defaults, pages, menu
// controllers, window), builds the workspace once the editor page has
// loaded, applies the stored settings to the page, decides whether the
// application may quit, and answers the core library's requests of the
// window (LWShell).
class LWAppDelegate : public QObject, public LWShell
{
    Q_OBJECT

public:
    // paths: files and folders handed over on the command line.
    explicit LWAppDelegate(const QStringList &paths);
    ~LWAppDelegate() override;

    LWMainWindow *window() const { return mainWindow.get(); }
    LWBackend *backend() const { return bridge.get(); }
    LWWebViewController *webView() const { return editorPage.get(); }
    LWUtilityWebViewController *utilityWebView() const { return utilityPage.get(); }
    LWDocumentManager *documentManager() const { return documents.get(); }
    SearchCommands *search() const { return searchCommands.get(); }
    PreferencesCommands *preferences() const { return preferenceCommands.get(); }
    // Uploads, downloads and listings of the remote-mapped folders.
    RemoteFolderActions *remoteFolderActions() const;

    // Files and folders handed over by the system (the command line, a later
    // start of the program): imported at once once the workspace is up,
    // else parked until the editor page has loaded.
    void openFiles(const QStringList &paths);
    // A later start's request: its paths are handed over, the window comes
    // to the front, and the first file shows the line asked for.
    void openRequest(const LWOpenRequest &request);
    // Full paths of the documents in the tab bar, in tab order.
    QStringList openDocumentPaths() const;

    // The Quit command: quits at once when "LW_DoOnQuit" is non-zero or
    // nothing is unsaved, otherwise only after the user confirms.
    void requestQuit();

    // --- LWShell
    void sendToEditor(const QString &script) override;
    QString evaluateInEditor(const QString &script) override;
    void evaluateInEditor(const QString &script, const std::function<void(const QString &)> &answered) override;
    QString evaluateInUtility(const QString &script) override;
    void setStatusMessage(const QString &message) override;
    void setStatusSpinnerRunning(bool running) override;
    void setLocationText(const QString &text) override;
    void showAlert(const QString &title, const QString &informativeText) override;
    void setRunButtonVisible(bool visible) override;
    void updateThemesMenu() override;
    void showAlert(const QString &title, const QString &informativeText,
                   const std::function<void()> &dismissed) override;
    void showConfirmation(const QString &title, const QString &informativeText,
                          const std::function<void(int)> &answered) override;
    void showChoice(const QString &title, const QString &informativeText, const QString &defaultButton,
                    const QString &otherButton, const std::function<void(int)> &answered) override;
    void showSaveQuestion(const QString &title, const QString &informativeText,
                          const std::function<void(int)> &answered) override;
    void showInput(const QString &title, const QString &defaultValue,
                   const std::function<void(const QString &)> &accepted) override;
    void showSlider(const QString &title, double minimum, double maximum, double value,
                    const std::function<void(double)> &moved, const std::function<void(double)> &accepted) override;
    bool isUtilityViewVisible() override;
    void openUtilityView() override;
    void closeUtilityView() override;
    void setUtilityLabel(const QString &label) override;
    void loadUtilityHTML(const QString &html) override;
    void loadUtilityHTML(const QString &html, const QString &basePath) override;
    void loadUtilityHTMLFile(const QString &pathOrURL, const QVariantList &cookies) override;
    void loadUtilityEditor(const QString &content, const QString &mode) override;
    void setUtilityPluginMenu(const QStringList &titles) override;
    void setSidebarVisible(bool visible) override;
    void setTabBarVisible(bool visible) override;
    void setStatusBarVisible(bool visible) override;
    void setSpecPopupTitle(const QString &title) override;
    void updatePluginMenusForSpec(LWSpec *spec) override;
    void setWindowTitle(const QString &title) override;
    void setLoadingSpinnerVisible(bool visible) override;
    void showEditorView() override;
    void showImagePreview(const QImage &image) override;
    void setStatusMessageVisible(bool visible) override;
    void setStatusSpinnerVisible(bool visible) override;
    void reloadOutline() override;
    void selectInOutline(const std::shared_ptr<LWDocument> &document) override;
    void expandInOutline(const std::shared_ptr<LWDocument> &document, bool withChildren) override;
    std::shared_ptr<LWDocument> selectedInOutline() override;
    std::shared_ptr<LWDocument> nextDocumentInOutline() override;
    std::shared_ptr<LWDocument> previousDocumentInOutline() override;
    void openOutlineSelectionInNewTab() override;
    void addTabWithDocument(const std::shared_ptr<LWDocument> &document) override;
    void setSelectedTabTitle(const QString &title) override;
    void showTabForDocument(const std::shared_ptr<LWDocument> &document) override;
    void setDocumentToSelect(const std::shared_ptr<LWDocument> &document) override;
    void noteRecentDocument(const QString &path) override;
    void showOpenDialog(bool files, bool folders, const QStringList &fileTypes,
                        const std::function<void(const QString &)> &chosen) override;
    void showSaveDialog(const std::function<void(const QString &)> &chosen) override;
    void printText(const QString &text) override;

signals:
    // The workspace is built and the stored settings are applied.
    void editorReady();
    // A tab was opened, closed or given another document.
    void openDocumentsChanged(const QStringList &paths);

private:
    void buildWindow();
    // The tab bar's links to the documents, closing tabs and the Window menu.
    void buildTabs();
    void addPreferencesCommands();
    void postProcess();
    void buildWorkspace();
    QStringList rememberedPaths() const;
    // Once the restored workspace is imported: its tabs again, in order,
    // with the one that was selected.
    void restoreTabs();
    void switchTo(const std::shared_ptr<LWDocument> &document);
    void goToPendingLine();
    void reportOpenDocuments();
    // A file chosen in the outline is shown in its own tab.
    // A file chosen in the outline is shown in its own tab (the document
    // manager selects or adds it on every switch).
    void openFromOutline(const std::shared_ptr<LWDocument> &document);
    // The window's close button quits as "LW_DoOnQuit" says (2 and up: it does nothing).
    void windowCloseRequested();
    void terminate();
    // The application is ending: keeps the workspace for the next run and
    // ends the commands still running.
    void shutDown();

    // Handed-over files that arrived before the workspace was up.
    bool dropOpened = false;
    QStringList droppedOpened;
    // The line a later start asked to show in one file, once it is in the editor.
    QString pendingLinePath;
    int pendingLine = 0;
    bool started = false;
    bool appTerminating = false;
    std::shared_ptr<LWDocument> documentToSelect;
    std::unique_ptr<LWEnvironment> environment;
    std::unique_ptr<LWBackend> bridge;
    std::unique_ptr<LWDefaultsController> defaultsController;
    std::unique_ptr<LWDocumentManager> documents;
    // Rebuilt with the workspace, since it acts on one manager.
    std::unique_ptr<LWFileMenuController> fileMenu;
    std::unique_ptr<LWEditMenuController> editMenu;
    std::unique_ptr<LWDocumentMenuController> documentMenu;
    std::unique_ptr<LWViewMenuController> viewMenu;
    std::unique_ptr<LWFindMenuController> findMenu;
    std::unique_ptr<LWWebViewController> editorPage;
    std::unique_ptr<LWUtilityWebViewController> utilityPage;
    std::unique_ptr<LWPluginsMenuController> pluginsController;
    // Declared last so that the window and its pages go before the channels.
    std::unique_ptr<LWMainWindow> mainWindow;
    std::unique_ptr<LWUIController> uiController;
    std::unique_ptr<LWTabBarController> tabBarController;
    std::unique_ptr<TabClosing> tabClosing;
    std::unique_ptr<LWWindowMenuController> windowMenu;
    std::unique_ptr<SearchCommands> searchCommands;
    std::unique_ptr<PreferencesCommands> preferenceCommands;
    std::unique_ptr<RemoteFolderTransfers> remoteTransfers;
};
