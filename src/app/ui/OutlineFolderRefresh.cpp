#include "app/ui/OutlineFolderRefresh.h"

#include "app/ui/WorkspaceOutline.h"
#include "documents/LWFolderSync.h"

OutlineFolderRefresh::OutlineFolderRefresh(WorkspaceOutline *outline) : QObject(outline), outline(outline)
{
    // Rows change only after the view has finished opening (or restoring) rows.
    connect(outline, &WorkspaceOutline::folderExpanded, this, [this](const LWDocument::Ptr &folder) {
        QMetaObject::invokeMethod(this, [this, folder] { folderOpened(folder); }, Qt::QueuedConnection);
    });
    connect(outline, &WorkspaceOutline::folderCollapsed, &watcher, &LWFolderWatcher::unwatch);
    connect(outline, &WorkspaceOutline::reloading, &watcher, &LWFolderWatcher::unwatchAll);
    connect(&watcher, &LWFolderWatcher::folderSynced, outline, &WorkspaceOutline::refreshChildren);
}

void OutlineFolderRefresh::folderOpened(const LWDocument::Ptr &folder)
{
    if (LWFolderSync::syncChildren(folder))
        outline->refreshChildren(folder);
    watcher.watch(folder);
}
