#include "app/ui/LWFileOutlineMenuController.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellTabBar.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/FileManager.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWImportTask.h"
#include "documents/LWOutlineMenuEntries.h"
#include "extensions/ui/LWMenuOperations.h"
#include "remote/RemoteFolderActions.h"

#include <QFile>

namespace {

const QString RemoteSettingsName = QStringLiteral(".ftp-settings.json");
constexpr QFile::Permissions OwnerOnly = QFile::ReadOwner | QFile::WriteOwner;

// The yes/no question's answer: 0 is "Yes" ("No" is the default button).
void askYesNo(ShellDialogs *dialogs, const QString &title, const QString &information,
              const std::function<void()> &onYes)
{
    dialogs->showChoice(title, information, QStringLiteral("No"), QStringLiteral("Yes"), [onYes](int answer) {
        if (answer == 0)
            onYes();
    });
}

// The mapping will hold a password: the file is made readable by its owner
// only before anything is written to it.
void writeOwnerOnly(const LWDocument::Ptr &settings)
{
    QFile file(settings->fullPath());
    if (!file.exists() && !file.open(QIODevice::WriteOnly, OwnerOnly))
        qWarning("Could not create %s: %s", qUtf8Printable(settings->fullPath()), qUtf8Printable(file.errorString()));
    file.close();
    settings->saveWithoutState();
    QFile::setPermissions(settings->fullPath(), OwnerOnly);
}

}

LWFileOutlineMenuController::LWFileOutlineMenuController(WorkspaceOutline *view, Services services)
    : QObject(view), view(view), services(std::move(services)), menu(QStringLiteral("File Menu"))
{
    connect(view, &WorkspaceOutline::contextMenuWanted, this, &LWFileOutlineMenuController::popUp);
    connect(view, &WorkspaceOutline::deleteWanted, this, &LWFileOutlineMenuController::deleteDocument);
}

void LWFileOutlineMenuController::popUp(const LWDocument::Ptr &clicked, const QPoint &globalPosition)
{
    setMenu(clicked);
    if (clicked)
        menu.popup(globalPosition);
}

void LWFileOutlineMenuController::setMenu(const LWDocument::Ptr &clicked)
{
    if (!clicked)
        return;
    clickedNode = clicked;
    menu.clear();
    LWMenuOperations::addItemsFromNestedArray(&menu, LWOutlineMenuEntries::entriesFor(*clicked), this);
    enableEntries(&menu);
}

void LWFileOutlineMenuController::enableEntries(QMenu *submenu)
{
    const LWDocument::Ptr clicked = clickedNode.lock();
    for (QAction *item : submenu->actions()) {
        if (item->menu())
            enableEntries(item->menu());
        else if (!item->isSeparator())
            item->setEnabled(LWOutlineMenuEntries::isEnabled(item->text(), clicked.get()));
    }
}

void LWFileOutlineMenuController::reloadLater()
{
    QMetaObject::invokeMethod(this, [this] { services.outline->reloadOutline(); }, Qt::QueuedConnection);
}

// MARK: documents

void LWFileOutlineMenuController::openInNewTabAction(QAction *)
{
    const LWDocument::Ptr clicked = clickedNode.lock();
    LWDocumentManager *documents = services.documents();
    if (!clicked || !clicked->isFile() || !documents)
        return;
    view->select(clicked);
    services.tabBar->addTabWithDocument(clicked);
    documents->switchToDoc(clicked);
}

// A new file is created empty on disk, so that it stays when its folder is
// next compared with the disk.
void LWFileOutlineMenuController::newFileAction(QAction *)
{
    const LWDocument::Ptr folder = clickedNode.lock();
    if (!folder)
        return;
    if (folder->isGroup() && folder->isUntitled()) {
        services.newLooseFile();
        return;
    }
    addAndShow(folder, LWDocument::emptyFileInExistingDocument(folder), [](const LWDocument::Ptr &file) {
        file->setContent(QString());
        file->saveWithoutState();
    });
}

void LWFileOutlineMenuController::newFolderAction(QAction *)
{
    if (const LWDocument::Ptr folder = clickedNode.lock())
        addAndShow(folder, LWDocument::emptyFolderInExistingDocument(folder),
                   [](const LWDocument::Ptr &made) { FileManager::createAsFolder(made->fullPath()); });
}

void LWFileOutlineMenuController::addAndShow(const LWDocument::Ptr &folder, const LWDocument::Ptr &node,
                                             const std::function<void(const LWDocument::Ptr &)> &onDisk)
{
    folder->addChildDocument(node);
    QMetaObject::invokeMethod(this, [this, folder, node, onDisk] {
        onDisk(node);
        showAdded(folder, node);
    }, Qt::QueuedConnection);
}

void LWFileOutlineMenuController::showAdded(const LWDocument::Ptr &folder, const LWDocument::Ptr &node)
{
    services.outline->reloadOutline();
    services.outline->selectInOutline(node);
    services.outline->expandInOutline(folder, false);
}

void LWFileOutlineMenuController::renameAction(QAction *)
{
    view->startRenaming(clickedNode.lock());
}

void LWFileOutlineMenuController::deleteAction(QAction *)
{
    deleteDocument(clickedNode.lock());
}

void LWFileOutlineMenuController::deleteDocument(const LWDocument::Ptr &document)
{
    if (!LWOutlineMenuEntries::isEnabled(QStringLiteral("Delete"), document.get()))
        return;
    const std::weak_ptr<LWDocument> asked = document;
    askYesNo(services.dialogs, QStringLiteral("Are you sure you want to delete\n%1?").arg(document->label()),
             document->fullPath(), [this, asked] {
                 const LWDocument::Ptr doomed = asked.lock();
                 const LWDocument::Ptr parent = doomed ? doomed->parent() : nullptr;
                 if (!parent)
                     return;
                 FileManager::deleteFile(doomed->fullPath());
                 parent->removeChildDocument(doomed);
                 services.outline->reloadOutline();
             });
}

// Nothing on disk changes.
void LWFileOutlineMenuController::removeFromWorkspaceAction(QAction *)
{
    const std::weak_ptr<LWDocument> asked = clickedNode;
    askYesNo(services.dialogs, QStringLiteral("Are you sure?"),
             QStringLiteral("After removing from workspace, all unsaved changes in will be lost."), [this, asked] {
                 const LWDocument::Ptr removed = asked.lock();
                 LWDocumentManager *documents = services.documents();
                 if (!removed || !documents)
                     return;
                 if (removed->isGroup())
                     documents->documentTree().removeGroup(removed);
                 else if (const LWDocument::Ptr parent = removed->parent())
                     parent->removeChildDocument(removed);
                 services.outline->reloadOutline();
             });
}

void LWFileOutlineMenuController::showInFinderAction(QAction *)
{
    if (const LWDocument::Ptr clicked = clickedNode.lock())
        FileManager::showInFinder(clicked->fullPath());
}

void LWFileOutlineMenuController::expandAllAction(QAction *)
{
    view->expand(clickedNode.lock(), true);
}

void LWFileOutlineMenuController::collapseAllAction(QAction *)
{
    view->collapseAll(clickedNode.lock());
}

// The folder is read again in the background; the new group takes the old
// one's place once it is built, dropping unsaved edits in the old one.
void LWFileOutlineMenuController::reloadFromDiskAction(QAction *)
{
    const LWDocument::Ptr group = clickedNode.lock();
    if (!group || !group->isGroup() || group->isUntitled())
        return;
    const std::weak_ptr<LWDocument> old = group;
    LWImportTask::start({group->fullPath()}, this, {}, [this, old](qsizetype, const QString &, const LWDocument::Ptr &fresh) {
        LWDocumentManager *documents = services.documents();
        const LWDocument::Ptr replaced = old.lock();
        if (!documents || !replaced || !fresh)
            return;
        documents->documentTree().refreshGroup(replaced, fresh);
        services.outline->reloadOutline();
        services.outline->expandInOutline(fresh, false);
    });
}

// MARK: remote folders

void LWFileOutlineMenuController::ftpMapToRemoteAction(QAction *)
{
    const LWDocument::Ptr folder = clickedNode.lock();
    if (!folder || folder->isFTPMapped())
        return;
    addAndShow(folder,
               LWDocument::fileInExistingDocument(folder, RemoteSettingsName,
                                                  QString::fromLatin1(LWOutlineMenuEntries::RemoteMappingTemplate)),
               writeOwnerOnly);
}

void LWFileOutlineMenuController::ftpSyncLocalToRemoteAction(QAction *)
{
    transfer([](RemoteFolderActions &remote, const LWDocument::Ptr &folder) { remote.upload(folder); });
}

void LWFileOutlineMenuController::ftpSyncRemoteToLocalAction(QAction *)
{
    transfer([](RemoteFolderActions &remote, const LWDocument::Ptr &folder) { remote.download(folder); });
}

void LWFileOutlineMenuController::ftpListRemoteAction(QAction *)
{
    transfer([](RemoteFolderActions &remote, const LWDocument::Ptr &folder) { remote.listRemote(folder); });
}

void LWFileOutlineMenuController::transfer(
    const std::function<void(RemoteFolderActions &, const LWDocument::Ptr &)> &start)
{
    const LWDocument::Ptr folder = clickedNode.lock();
    if (!folder)
        return;
    if (!services.remote) {
        qInfo("Remote transfer of %s not started: no remote support", qUtf8Printable(folder->fullPath()));
        services.dialogs->showAlert(QStringLiteral("Remote transfers are not available"),
                                    QStringLiteral("This copy of Larkwood cannot reach remote locations, so \"%1\" "
                                                   "was not transferred.")
                                        .arg(folder->label()));
        return;
    }
    start(*services.remote, folder);
}
