#include "documents/LWDocumentManager.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"
#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellTabBar.h"
#include "app/roles/ShellWindow.h"
#include "documents/LWDocumentWatcher.h"
#include "documents/LWImagePreview.h"
#include "documents/LWSpecChooser.h"

#include "documents/LWImportTask.h"

#include <QtDebug>

#include <utility>

namespace {

LWDocumentManager *sharedManager = nullptr;
const QString RememberedKey = QStringLiteral("LW_PreviouslyOpened");

}

LWDocumentManager::LWDocumentManager() : watcher(std::make_unique<LWDocumentWatcher>(*this)) {}

LWDocumentManager::~LWDocumentManager()
{
    if (sharedManager == this)
        sharedManager = nullptr;
}

LWDocumentManager *LWDocumentManager::shared()
{
    return sharedManager;
}

void LWDocumentManager::setShared(LWDocumentManager *manager)
{
    sharedManager = manager;
}

std::unique_ptr<LWDocumentManager> LWDocumentManager::newWithUntitled()
{
    auto manager = std::make_unique<LWDocumentManager>();
    LWDocument::Ptr untitled = LWDocument::emptyFile();
    manager->tree.addDocumentToFilesGroup(untitled);
    if (ShellTabBar *tabBar = ShellRoles::tabBar())
        tabBar->addTabWithDocument(untitled);
    if (ShellOutline *outline = ShellRoles::outline())
        outline->setDocumentToSelect(untitled);
    manager->setCurrentDocument(untitled);
    QMetaObject::invokeMethod(manager.get(), [] {
        if (ShellOutline *outline = ShellRoles::outline()) {
            outline->reloadOutline();
            outline->expandInOutline(nullptr, true);
        }
    }, Qt::QueuedConnection);
    return manager;
}

std::unique_ptr<LWDocumentManager> LWDocumentManager::newWithPaths(const QStringList &paths)
{
    auto manager = std::make_unique<LWDocumentManager>();
    manager->importInBackground(paths);
    if (ShellTabBar *tabBar = ShellRoles::tabBar())
        tabBar->addTabWithDocument(LWDocument::emptyFile());
    return manager;
}

std::unique_ptr<LWDocumentManager> LWDocumentManager::newWithRememberedWorkspace()
{
    const QStringList paths = LWDocumentTree::restorablePaths(LWDefaults::shared()->arrayForKey(RememberedKey));
    return paths.isEmpty() ? newWithUntitled() : newWithPaths(paths);
}

void LWDocumentManager::rememberWorkspace() const
{
    LWDefaults::shared()->setObject(RememberedKey, tree.rememberedPaths());
    LWDefaults::shared()->synchronize();
}

std::unique_ptr<LWDocumentManager> LWDocumentManager::copy() const
{
    qInfo("copyWithZone:");
    auto manager = std::make_unique<LWDocumentManager>();
    manager->tree = tree;
    return manager;
}

void LWDocumentManager::setCurrentDocument(const LWDocument::Ptr &document)
{
    current = document ? document->copy() : nullptr;
}

// MARK: background import

void LWDocumentManager::importInBackground(const QStringList &paths)
{
    if (paths.isEmpty()) {
        QMetaObject::invokeMethod(this, &LWDocumentManager::importFinished, Qt::QueuedConnection);
        return;
    }
    const auto showProgress = [](qsizetype) {
        if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
            statusBar->setStatusMessage(QStringLiteral("Importing Documents..."));
            statusBar->setStatusMessageVisible(true);
            statusBar->setStatusSpinnerRunning(true);
            statusBar->setStatusSpinnerVisible(true);
        }
    };
    const qsizetype last = paths.size() - 1;
    LWImportTask::start(paths, this, showProgress,
                        [this, last](qsizetype index, const QString &path, const LWDocument::Ptr &node) {
                            adoptImported(path, node, index == last);
                        });
}

void LWDocumentManager::adoptImported(const QString &path, const LWDocument::Ptr &node, bool isLast)
{
    const LWDocument::Ptr adopted = tree.adoptImported(path, node);
    if (ShellOutline *outline = ShellRoles::outline()) {
        if (adopted && adopted->isFile())
            outline->setDocumentToSelect(adopted);
        outline->reloadOutline();
        if (adopted)
            outline->expandInOutline(adopted->isFile() ? tree.filesGroup() : adopted, false);
    }
    if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
        if (isLast)
            statusBar->setStatusMessage(QLatin1String(""));
        statusBar->setStatusMessageVisible(false);
        statusBar->setStatusSpinnerRunning(false);
        statusBar->setStatusSpinnerVisible(false);
    }
    if (isLast)
        emit importFinished();
}

// MARK: switching documents

// Storing the outgoing state waits for the page's answer, and events queued
// meanwhile (an outline reload selecting a row) can ask for another switch.
// Such a request is kept and carried out once the running switch is done;
// of several, the latest wins, since it names what the user sees last.
void LWDocumentManager::switchToDoc(const LWDocument::Ptr &document)
{
    if (!document) {
        qWarning("switchToDoc: no document to switch to");
        return;
    }
    if (switching) {
        queuedSwitch = document;
        return;
    }
    switching = true;
    for (LWDocument::Ptr next = document; next; next = std::exchange(queuedSwitch, nullptr))
        showInEditor(next);
    switching = false;
}

void LWDocumentManager::showInEditor(const LWDocument::Ptr &document)
{
    ShellPages *pages = ShellRoles::pages();
    if (pages)
        pages->setLoadingSpinnerVisible(false);
    if (current && current != document && !showsAsImage(current))
        storeOutgoingState();
    current = document;
    if (!pages)
        return;
    ShellRoles::tabBar()->showTabForDocument(document);
    ShellRoles::window()->setWindowTitle(document->path().isEmpty()
                              ? document->label()
                              : QStringLiteral("%1 - %2").arg(document->label(), document->path()));
    showSpecOf(*document);
    if (showsAsImage(document)) {
        pages->showImagePreview(LWImagePreview::load(document->fullPath()));
        return;
    }
    pages->showEditorView();
    loadIntoEditor(document);
    watcher->watch(document);
}

void LWDocumentManager::showNoDocument()
{
    if (switching) {
        qWarning("showNoDocument: a switch is running; the editor keeps its document");
        return;
    }
    ShellPages *pages = ShellRoles::pages();
    if (current && pages && !showsAsImage(current))
        storeOutgoingState();
    current = nullptr;
    if (!pages)
        return;
    ShellRoles::window()->setWindowTitle(QStringLiteral("Larkwood"));
    ShellRoles::statusBar()->setSpecPopupTitle(QString());
    ShellRoles::window()->updatePluginMenusForSpec(nullptr);
    pages->showEditorView();
    pages->sendToEditor(QStringLiteral("lw.setState({\"content\":\"\",\"mode\":\"text\",\"readOnly\":true});"));
}

void LWDocumentManager::reloadFromDisk(const LWDocument::Ptr &document)
{
    document->reloadFromDisk();
    if (document == current && ShellRoles::pages() && !showsAsImage(document))
        loadIntoEditor(document);
    if (ShellOutline *outline = ShellRoles::outline())
        outline->reloadOutline();
}

bool LWDocumentManager::showsAsImage(const LWDocument::Ptr &document)
{
    return document && !document->isUntitled() && LWImagePreview::isImage(document->fullPath());
}

// The status bar's language and the plugin menus (with the run button)
// always follow the document in the editor.
void LWDocumentManager::showSpecOf(const LWDocument &document)
{
    ShellRoles::statusBar()->setSpecPopupTitle(document.specName());
    ShellRoles::window()->updatePluginMenusForSpec(LWSpecChooser::specNamed(document.specName()));
}

void LWDocumentManager::storeOutgoingState()
{
    ShellPages *pages = ShellRoles::pages();
    if (!pages)
        return;
    current->updateFromJson(pages->evaluateInEditor(current->editorStateQuery()));
    pages->sendToEditor(QStringLiteral("lw.saveLocalState('%1');").arg(current->identity()));
}

void LWDocumentManager::loadIntoEditor(const LWDocument::Ptr &document)
{
    ShellPages *pages = ShellRoles::pages();
    pages->sendToEditor(QStringLiteral("lw.setState(%1);").arg(document->toEditorJson()));
    pages->sendToEditor(QStringLiteral("lw.loadLocalState('%1');").arg(document->identity()));
}
