#pragma once

#include "documents/LWFolderWatcher.h"

#include <QObject>

class WorkspaceOutline;

// Keeps the open folders of the sidebar in line with the disk: a folder is
// brought in line just after its row is opened and then watched until it is
// closed; a change on disk refreshes only that folder's rows.
class OutlineFolderRefresh : public QObject
{
public:
    explicit OutlineFolderRefresh(WorkspaceOutline *outline);

private:
    void folderOpened(const LWDocument::Ptr &folder);

    WorkspaceOutline *outline;
    LWFolderWatcher watcher;
};
