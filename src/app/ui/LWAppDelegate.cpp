#include "app/ui/LWAppDelegate.h"

#include "app/LWDefaults.h"
#include "app/LWDefaultsController.h"
#include "app/roles/ShellRoles.h"
#include "app/ui/LWFileOutlineController.h"
#include "app/ui/LWFileOutlineMenuController.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/LWUIController.h"
#include "app/ui/LWTabBarController.h"
#include "app/ui/LWWindowMenuController.h"
#include "app/ui/TabClosing.h"
#include "app/ui/WindowMenu.h"
#include "app/ui/PreferencesCommands.h"
#include "app/ui/WindowSession.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWFileMenuController.h"
#include "documents/ui/TabBarView.h"
#include "editor/LWBackend.h"
#include "editor/LWDocumentMenuController.h"
#include "editor/LWEditMenuController.h"
#include "editor/LWFindMenuController.h"
#include "editor/LWViewMenuController.h"
#include "editor/ui/LWUtilityWebViewController.h"
#include "editor/ui/LWWebViewController.h"
#include "extensions/LWEnvironment.h"
#include "extensions/ui/LWPluginsMenuController.h"
#include "search/ui/QuickOpen.h"
#include "search/ui/SearchCommands.h"
#include "remote/RemoteFolderTransfers.h"
#include "remote/ui/TransfersMenu.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QWebEngineView>

LWAppDelegate::LWAppDelegate(const QStringList &paths)
    : environment(std::make_unique<LWEnvironment>()),
      bridge(std::make_unique<LWBackend>()),
      defaultsController(std::make_unique<LWDefaultsController>()),
      documents(std::make_unique<LWDocumentManager>()),
      fileMenu(std::make_unique<LWFileMenuController>(*documents))
{
    LWEnvironment::setShared(environment.get());
    environment->load();
    LWDocumentManager::setShared(documents.get());
    editMenu = std::make_unique<LWEditMenuController>();
    documentMenu = std::make_unique<LWDocumentMenuController>([this] { return documents->currentDocument(); },
                                                              LWDocumentMenuController::Roles{*this, *this, *this});
    viewMenu = std::make_unique<LWViewMenuController>(*this, *this);
    findMenu = std::make_unique<LWFindMenuController>();
    editorPage = std::make_unique<LWWebViewController>(bridge.get(), nullptr);
    utilityPage = std::make_unique<LWUtilityWebViewController>(bridge.get(), nullptr);
    remoteTransfers = std::make_unique<RemoteFolderTransfers>(this, this, this);
    buildWindow();
    ShellRoles::installAll(this);
    connect(editorPage.get(), &LWWebViewController::pageLoaded, this, &LWAppDelegate::postProcess);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &LWAppDelegate::shutDown);
    openFiles(paths);
}

// The roles are withdrawn first: page answers still arriving while the
// window is torn down must not reach it.
LWAppDelegate::~LWAppDelegate()
{
    if (ShellRoles::pages() == this)
        ShellRoles::install({});
    uiController.reset();
    searchCommands.reset();
    mainWindow.reset();
    LWDocumentManager::setShared(nullptr);
    LWEnvironment::setShared(nullptr);
}

RemoteFolderActions *LWAppDelegate::remoteFolderActions() const
{
    return remoteTransfers.get();
}

void LWAppDelegate::buildWindow()
{
    mainWindow = std::make_unique<LWMainWindow>(editorPage->view(), utilityPage->view());
    pluginsController = std::make_unique<LWPluginsMenuController>(environment.get(), mainWindow.get(), *this);
    uiController = std::make_unique<LWUIController>(
        mainWindow.get(), environment.get(), this,
        LWUIController::MenuControllers{[this]() -> LWFileMenuController & { return *fileMenu; }, editMenu.get(),
                                        documentMenu.get(), viewMenu.get(), findMenu.get(), pluginsController.get()},
        [this] { requestQuit(); });
    addPreferencesCommands();
    searchCommands = std::make_unique<SearchCommands>(mainWindow.get(), [this] { return documents.get(); }, this,
                                                      this, editorPage->view());
    // The outline is rebuilt when the workspace gains or loses files.
    connect(mainWindow->outline(), &WorkspaceOutline::reloading, searchCommands->quickOpen(),
            &QuickOpen::refreshIndex, Qt::QueuedConnection);
    TransfersMenu::build(mainWindow->menuBar(), remoteTransfers.get());
    connect(mainWindow.get(), &LWMainWindow::pluginMenuItemChosen, bridge.get(),
            &LWBackend::utilityViewMenuItemClicked_);
    connect(mainWindow->outline(), &WorkspaceOutline::documentChosen, this, &LWAppDelegate::openFromOutline);
    connect(mainWindow->outline()->rows(), &LWFileOutlineController::renameRefused, this,
            [this](const QString &message) { showAlert(QStringLiteral("The item was not renamed"), message); });
    new LWFileOutlineMenuController(mainWindow->outline(),
                                    {this, this, this, [this] { return documents.get(); },
                                     [this] {
                                         if (fileMenu)
                                             fileMenu->newAction();
                                     },
                                     remoteTransfers.get()});
    connect(mainWindow.get(), &LWMainWindow::closeRequested, this, &LWAppDelegate::windowCloseRequested);
    connect(mainWindow.get(), &LWMainWindow::pathsDropped, this, [this](const QStringList &paths) {
        if (fileMenu)
            fileMenu->openPaths(paths);
        else
            qInfo("Dropped paths ignored: the workspace is not up yet");
    });
    buildTabs();
    // Asked after the tab bar has settled, so a tab being closed is gone.
    connect(mainWindow->tabs(), &TabBarView::tabsChanged, this, &LWAppDelegate::reportOpenDocuments,
            Qt::QueuedConnection);
    if (!WindowSession::restoreFrame(*mainWindow))
        mainWindow->resize(1200, 800);
    // The terminal console lives in the editor page, which needs the keyboard too.
    if (auto *terminalFocus = mainWindow->menuBar()->findChild<QAction *>(QStringLiteral("toggleTerminalFocusAction")))
        connect(terminalFocus, &QAction::triggered, editorPage->view(), [view = editorPage->view()] { view->setFocus(); });
}

// The manager and the File menu's controller are replaced once the
// workspace is built, so the tab classes reach them through this delegate.
void LWAppDelegate::buildTabs()
{
    TabBarView *tabBar = mainWindow->tabs();
    const auto manager = [this]() -> LWDocumentManager & { return *documents; };
    tabBarController = std::make_unique<LWTabBarController>(*tabBar, manager, *this);
    tabClosing = std::make_unique<TabClosing>(*tabBar, manager, *this, [this] { fileMenu->saveAction(); });
    windowMenu = std::make_unique<LWWindowMenuController>(*tabBar, *this, *tabClosing);
    WindowMenu::build(mainWindow->menuBar(), *windowMenu);
    // A chosen tab gives the keyboard back to the editor.
    connect(tabBar, &TabBarView::tabDidActived, editorPage->view(), [view = editorPage->view()] { view->setFocus(); });
}

// The preferences commands close the Edit menu, as on other Linux editors.
void LWAppDelegate::addPreferencesCommands()
{
    preferenceCommands = std::make_unique<PreferencesCommands>(mainWindow.get(), *this, *viewMenu, *defaultsController);
    for (QAction *entry : mainWindow->menuBar()->actions()) {
        if (entry->menu() && entry->text() == QLatin1String("Edit")) {
            preferenceCommands->addMenuItems(entry->menu());
            return;
        }
    }
    qWarning("No Edit menu: the preferences commands have no menu items");
}

// The editor page has loaded: the first time, build the workspace (the
// handed-over files, else the remembered ones, else one untitled file),
// let the outline select and open the node the workspace names, and apply
// the stored settings. A later load of the page keeps the workspace, so
// nothing open is lost.
void LWAppDelegate::postProcess()
{
    if (started)
        return;
    started = true;
    try {
        buildWorkspace();
    } catch (const std::exception &error) {
        qWarning("Start-up could not build the workspace: %s", error.what());
    }
    uiController->setupUIwithDefaults();
    // Typing goes into the document from the start.
    editorPage->view()->setFocus();
    emit editorReady();
}

void LWAppDelegate::buildWorkspace()
{
    if (dropOpened) {
        for (const QString &handedOver : droppedOpened)
            noteRecentDocument(handedOver);
        // dropOpened stays set: later arrivals are told apart by the empty list.
        documents = LWDocumentManager::newWithPaths(std::exchange(droppedOpened, {}));
    } else {
        const QStringList remembered = rememberedPaths();
        documents = remembered.isEmpty() ? LWDocumentManager::newWithUntitled()
                                         : LWDocumentManager::newWithPaths(remembered);
        if (!remembered.isEmpty())
            connect(documents.get(), &LWDocumentManager::importFinished, this, &LWAppDelegate::restoreTabs);
    }
    LWDocumentManager::setShared(documents.get());
    fileMenu = std::make_unique<LWFileMenuController>(*documents);
    QMetaObject::invokeMethod(this, &LWAppDelegate::reloadOutline, Qt::QueuedConnection);
}

// The paths of the last run that still exist, when "LW_DoAtStartup" is 0.
QStringList LWAppDelegate::rememberedPaths() const
{
    const LWDefaults *defaults = LWDefaults::shared();
    if (defaults->integerForKey(QStringLiteral("LW_DoAtStartup")) != 0)
        return {};
    return LWDocumentTree::restorablePaths(defaults->arrayForKey(QStringLiteral("LW_PreviouslyOpened")));
}

void LWAppDelegate::openFromOutline(const std::shared_ptr<LWDocument> &document)
{
    documents->switchToDoc(document);
    goToPendingLine();
}
