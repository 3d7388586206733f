#include "documents/LWFileMenuController.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellRoles.h"
#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellWindow.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWImportTask.h"
#include "documents/LWRecentDocuments.h"

#include <QFileInfo>
#include <QtDebug>

namespace {

// Where a node was before Save As pointed it at a new file. A failed save
// puts it back, so that the node never names a file that was not written.
struct Location
{
    QString label;
    QString path;
    QString fullPath;
    QString specName;
};

// A failed save has told the user and left the node as it was.
void saveAndShow(const LWDocument::Ptr &document)
{
    if (!document->save())
        return;
    if (ShellOutline *outline = ShellRoles::outline())
        outline->reloadOutline();
}

Location locationOf(const LWDocument &document)
{
    return {document.label(), document.path(), document.fullPath(), document.specName()};
}

void moveBack(LWDocument &document, const Location &location)
{
    document.setLabel(location.label);
    document.setPath(location.path);
    document.setFullPath(location.fullPath);
    document.setSpecName(location.specName);
}

}

LWFileMenuController::LWFileMenuController(LWDocumentManager &manager)
    : manager(manager)
{
}

void LWFileMenuController::newAction()
{
    addLooseFile(LWDocument::emptyFile());
}

void LWFileMenuController::newFromTemplateAction(const QVariantMap &templateRecord)
{
    addLooseFile(LWDocument::fileFromTemplate(templateRecord.value(QStringLiteral("filename")).toString(),
                                              templateRecord.value(QStringLiteral("source")).toString(),
                                              QLatin1String("")));
}

// Selecting the new node in the sidebar is what opens it in the editor.
void LWFileMenuController::addLooseFile(const LWDocument::Ptr &document)
{
    manager.documentTree().addDocumentToFilesGroup(document);
    const LWDocument::Ptr files = manager.documentTree().filesGroup();
    QMetaObject::invokeMethod(&manager, [document, files] {
        if (ShellOutline *outline = ShellRoles::outline()) {
            outline->reloadOutline();
            outline->selectInOutline(document);
            outline->expandInOutline(files, false);
        }
    }, Qt::QueuedConnection);
}

void LWFileMenuController::openAction()
{
    chooseAndOpen(true, true);
}

void LWFileMenuController::openFolderAction()
{
    chooseAndOpen(false, true);
}

void LWFileMenuController::chooseAndOpen(bool files, bool folders)
{
    ShellDialogs *dialogs = ShellRoles::dialogs();
    if (!dialogs)
        return;
    dialogs->showOpenDialog(files, folders, {}, [this](const QString &path) { openPaths({path}); });
}

namespace {

// "Importing documents..." with the spinner while a path is read in.
void showImportStatus(ShellStatusBar &shell, bool importing)
{
    shell.setStatusMessage(importing ? QStringLiteral("Importing documents...") : QString());
    shell.setStatusMessageVisible(importing);
    shell.setStatusSpinnerRunning(importing);
    shell.setStatusSpinnerVisible(importing);
}

}

// Each path is imported on a background thread; a file is then selected,
// which opens it, and a folder is expanded in the sidebar.
void LWFileMenuController::openPaths(const QStringList &paths)
{
    if (ShellWindow *window = ShellRoles::window()) {
        for (const QString &path : paths)
            window->noteRecentDocument(path);
    }
    LWDocumentManager *owner = &manager;
    const auto showImporting = [](qsizetype) {
        if (ShellStatusBar *statusBar = ShellRoles::statusBar())
            showImportStatus(*statusBar, true);
    };
    LWImportTask::start(paths, owner, showImporting,
                        [owner](qsizetype, const QString &path, const LWDocument::Ptr &node) {
                            const LWDocument::Ptr adopted = owner->documentTree().adoptImported(path, node);
                            if (ShellStatusBar *statusBar = ShellRoles::statusBar())
                                showImportStatus(*statusBar, false);
                            ShellOutline *outline = ShellRoles::outline();
                            if (!outline)
                                return;
                            outline->reloadOutline();
                            if (adopted && adopted->isFile())
                                outline->selectInOutline(adopted);
                            else if (adopted && adopted->isGroup())
                                outline->expandInOutline(adopted, false);
                        });
}

// A recent path already in the workspace is shown; one that is gone is
// dropped from the list, and the user is told.
void LWFileMenuController::openRecent(const QString &path)
{
    if (!QFileInfo::exists(path)) {
        qWarning("Recent document %s no longer exists; removed from the list", qPrintable(path));
        LWRecentDocuments::forget(path);
        if (ShellDialogs *dialogs = ShellRoles::dialogs())
            dialogs->showAlert(QStringLiteral("“%1” cannot be opened").arg(QFileInfo(path).fileName()),
                             QStringLiteral("It no longer exists at %1, so it was removed from Open Recent.").arg(path));
        return;
    }
    const LWDocument::Ptr open = manager.documentTree().documentWithFullPath(path);
    if (!open) {
        openPaths({path});
        return;
    }
    LWRecentDocuments::note(path);
    ShellOutline *outline = ShellRoles::outline();
    if (outline && open->isFile())
        outline->selectInOutline(open);
}

void LWFileMenuController::openInNewTab()
{
    if (ShellOutline *outline = ShellRoles::outline())
        outline->openOutlineSelectionInNewTab();
}

void LWFileMenuController::saveAction()
{
    const LWDocument::Ptr document = manager.currentDocument();
    if (!document || LWDocumentManager::showsAsImage(document)) {
        qInfo("Nothing to save: no text document is open");
        return;
    }
    if (document->isUntitled()) {
        saveAsAction();
        return;
    }
    if (document->changedOnDisk()) {
        confirmReplacing(document);
        return;
    }
    saveAndShow(document);
}

// Another program wrote, replaced or removed the file since this node's text
// was read from it: saving goes ahead only when the user says so.
void LWFileMenuController::confirmReplacing(const LWDocument::Ptr &document)
{
    ShellDialogs *dialogs = ShellRoles::dialogs();
    if (!dialogs)
        return;
    const bool removed = !LWDiskStamp::of(document->fullPath()).exists;
    const QString title = removed ? QStringLiteral("“%1” was removed or renamed on disk")
                                  : QStringLiteral("“%1” was changed by another program");
    const QString question = removed ? QStringLiteral("Save it again at %1?")
                                     : QStringLiteral("Saving replaces the file at %1 and its changes are lost.");
    const std::weak_ptr<LWDocument> weak = document;
    dialogs->showChoice(title.arg(document->label()), question.arg(document->fullPath()), QStringLiteral("Cancel"),
                      removed ? QStringLiteral("Save") : QStringLiteral("Replace"), [weak](int cancelled) {
                          if (const LWDocument::Ptr document = weak.lock(); document && !cancelled)
                              saveAndShow(document);
                      });
}

void LWFileMenuController::saveAsAction()
{
    ShellDialogs *dialogs = ShellRoles::dialogs();
    const LWDocument::Ptr document = manager.currentDocument();
    if (!dialogs || !document || LWDocumentManager::showsAsImage(document))
        return;
    dialogs->showSaveDialog([document](const QString &path) {
        const Location previous = locationOf(*document);
        document->updatePath(path);
        if (!document->save()) {
            moveBack(*document, previous);
            return;
        }
        if (ShellWindow *window = ShellRoles::window())
            window->noteRecentDocument(path);
        if (ShellOutline *outline = ShellRoles::outline()) {
            outline->reloadOutline();
            outline->selectInOutline(document);
        }
    });
}

namespace {

void collectUnsavedFiles(const LWDocument::List &nodes, LWDocument::List &unsaved)
{
    for (const LWDocument::Ptr &node : nodes) {
        if (node->isFile() && !node->saved() && !node->isUntitled())
            unsaved.push_back(node);
        collectUnsavedFiles(node->children(), unsaved);
    }
}

}

void LWFileMenuController::saveAllAction()
{
    LWDocument::List unsaved;
    collectUnsavedFiles(manager.documentTree().groups(), unsaved);
    const LWDocument::Ptr current = manager.currentDocument();
    for (const LWDocument::Ptr &document : unsaved) {
        if (document == current)
            saveAction();
        else if (document->changedOnDisk())
            qInfo("Save All skips %s: it changed on disk; open it and save to decide", qPrintable(document->fullPath()));
        else
            document->saveWithoutState();
    }
    if (!unsaved.empty())
        if (ShellOutline *outline = ShellRoles::outline())
            outline->reloadOutline();
}

void LWFileMenuController::printAction()
{
    const LWDocument::Ptr document = manager.currentDocument();
    ShellDialogs *dialogs = ShellRoles::dialogs();
    if (dialogs && document)
        dialogs->printText(document->content().value_or(QString()));
}

bool LWFileMenuController::validateMenuItem(const QString &action) const
{
    if (action == QLatin1String("saveAction:") || action == QLatin1String("saveAsAction:"))
        return manager.currentDocument() && !LWDocumentManager::showsAsImage(manager.currentDocument());
    if (action != QLatin1String("openInNewTab:"))
        return true;
    ShellOutline *outline = ShellRoles::outline();
    const LWDocument::Ptr selected = outline ? outline->selectedInOutline() : nullptr;
    return selected && selected->isFile();
}
