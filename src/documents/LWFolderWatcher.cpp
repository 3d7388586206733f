#include "documents/LWFolderWatcher.h"

#include "documents/FileManager.h"
#include "documents/LWFolderSync.h"

#include <QtDebug>


LWFolderWatcher::LWFolderWatcher()
    : changes(settleMilliseconds, [this](const QSet<QString> &paths) { syncChangedFolders(paths); })
{
    connect(&directories, &QFileSystemWatcher::directoryChanged, &changes, &SettlingChanges::note);
}

void LWFolderWatcher::watch(const LWDocument::Ptr &folder)
{
    if (!folder || !folder->isExpandable() || folder->isUntitled() || isWatching(folder->fullPath()))
        return;
    const QString path = folder->fullPath();
    if (!FileManager::isFolder(path))
        return;
    if (folders.size() >= maximumFolders) {
        qInfo().noquote() << QStringLiteral("Not watching %1: %2 folders are watched already")
                                 .arg(path).arg(maximumFolders);
        return;
    }
    if (!directories.addPath(path)) {
        qWarning().noquote() << QStringLiteral("Cannot watch folder %1 for changes").arg(path);
        return;
    }
    folders[path] = folder;
}

void LWFolderWatcher::unwatch(const LWDocument::Ptr &folder)
{
    if (folder && isWatching(folder->fullPath()))
        forget(folder->fullPath());
}

void LWFolderWatcher::unwatchAll()
{
    if (!directories.directories().isEmpty())
        directories.removePaths(directories.directories());
    folders.clear();
    changes.clear();
}

void LWFolderWatcher::forget(const QString &path)
{
    directories.removePath(path);
    folders.erase(path);
    changes.forget(path);
}

void LWFolderWatcher::syncChangedFolders(const QSet<QString> &paths)
{
    for (const QString &path : paths) {
        const auto found = folders.find(path);
        const LWDocument::Ptr folder = found == folders.end() ? nullptr : found->second.lock();
        // A folder that went away is dropped by its parent's refresh.
        if (!folder || folder->fullPath() != path || !FileManager::isFolder(path)) {
            forget(path);
            continue;
        }
        if (LWFolderSync::syncChildren(folder))
            emit folderSynced(folder);
    }
}
