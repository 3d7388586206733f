#pragma once

#include "documents/LWDocument.h"

#include <QMenu>
#include <QObject>

#include <functional>

class LWDocumentManager;
class QAction;
class RemoteFolderActions;
class ShellDialogs;
class ShellOutline;
class ShellTabBar;
class WorkspaceOutline;

// The sidebar's context menu ("File Menu"): rebuilt for the clicked node
// each time it opens (see LWOutlineMenuEntries), and the actions of its
// entries. Actions that change the tree show the change once the menu's
// event is over.
class LWFileOutlineMenuController : public QObject
{
    Q_OBJECT

public:
    struct Services
    {
        ShellDialogs *dialogs = nullptr;
        ShellOutline *outline = nullptr;
        ShellTabBar *tabBar = nullptr;
        std::function<LWDocumentManager *()> documents;
        // The File menu's New: an untitled file among the loose files.
        std::function<void()> newLooseFile;
        // Null when remote transfers are not available.
        RemoteFolderActions *remote = nullptr;
    };

    LWFileOutlineMenuController(WorkspaceOutline *view, Services services);

    QMenu *fileOutlineMenu() { return &menu; }
    // Fills the menu for the node (none: left as it was) and shows it.
    void popUp(const LWDocument::Ptr &clicked, const QPoint &globalPosition);
    void setMenu(const LWDocument::Ptr &clicked);

public slots:
    void openInNewTabAction(QAction *item = nullptr);
    void newFileAction(QAction *item = nullptr);
    void newFolderAction(QAction *item = nullptr);
    void renameAction(QAction *item = nullptr);
    void deleteAction(QAction *item = nullptr);
    void removeFromWorkspaceAction(QAction *item = nullptr);
    void showInFinderAction(QAction *item = nullptr);
    void expandAllAction(QAction *item = nullptr);
    void collapseAllAction(QAction *item = nullptr);
    void reloadFromDiskAction(QAction *item = nullptr);
    void ftpMapToRemoteAction(QAction *item = nullptr);
    void ftpSyncLocalToRemoteAction(QAction *item = nullptr);
    void ftpSyncRemoteToLocalAction(QAction *item = nullptr);
    void ftpListRemoteAction(QAction *item = nullptr);

    // Asks, then deletes the node's item on disk and its row.
    void deleteDocument(const LWDocument::Ptr &document);

private:
    void enableEntries(QMenu *submenu);
    // Adds the node to the folder, then (after this event) saves it, shows
    // it selected and opens the folder.
    void addAndShow(const LWDocument::Ptr &folder, const LWDocument::Ptr &node,
                    const std::function<void(const LWDocument::Ptr &)> &onDisk);
    void showAdded(const LWDocument::Ptr &folder, const LWDocument::Ptr &node);
    void transfer(const std::function<void(RemoteFolderActions &, const LWDocument::Ptr &)> &start);
    void reloadLater();

    WorkspaceOutline *view;
    Services services;
    QMenu menu;
    std::weak_ptr<LWDocument> clickedNode;
};
