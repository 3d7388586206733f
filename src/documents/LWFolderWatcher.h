#pragma once

#include "documents/LWDocument.h"

#include <QFileSystemWatcher>
#include "documents/SettlingChanges.h"

#include <QObject>

#include <map>

// Watches the folders of chosen folder nodes (those whose rows are open in
// the sidebar) and, a moment after other programs stop creating, removing
// or renaming entries in one, brings that folder's children in line with
// the disk and reports the folder. At most maximumFolders are watched at a
// time, so that a sidebar with many open folders stays within the system's
// watch limits; folders past that are brought in line when they are opened.
class LWFolderWatcher : public QObject
{
    Q_OBJECT

public:
    LWFolderWatcher();

    void watch(const LWDocument::Ptr &folder);
    void unwatch(const LWDocument::Ptr &folder);
    void unwatchAll();
    bool isWatching(const QString &path) const { return folders.count(path) != 0; }

    static constexpr int settleMilliseconds = 250;
    static constexpr int maximumFolders = 256;

signals:
    // The folder's children changed to match the disk.
    void folderSynced(const LWDocument::Ptr &folder);

private:
    void syncChangedFolders(const QSet<QString> &paths);
    void forget(const QString &path);

    QFileSystemWatcher directories;
    SettlingChanges changes;
    std::map<QString, std::weak_ptr<LWDocument>> folders;
};
