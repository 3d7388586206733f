#include "documents/LWFolderSync.h"

#include "documents/FileManager.h"

#include <QFileInfo>
#include <QHash>
#include <QtDebug>

namespace LWFolderSync {

namespace {

// The imported folder that the node's relative paths are measured from.
QString importRoot(const LWDocument::Ptr &folder)
{
    LWDocument::Ptr node = folder;
    while (node && !node->isGroup())
        node = node->parent();
    return node ? node->fullPath() : folder->fullPath();
}

QString keyOf(const QString &name, bool isFolder)
{
    return (isFolder ? QLatin1Char('d') : QLatin1Char('f')) + name;
}

bool holdsUnsavedWork(const LWDocument::Ptr &child)
{
    return !child->unsavedChanges();
}

bool isSyncable(const LWDocument::Ptr &folder)
{
    if (!folder || !folder->isExpandable() || folder->isUntitled() || !FileManager::isFolder(folder->fullPath()))
        return false;
    if (!QFileInfo(folder->fullPath()).isReadable()) {
        qWarning().noquote() << QStringLiteral("Cannot read folder %1; its entries stay as they were")
                                    .arg(folder->fullPath());
        return false;
    }
    return true;
}

}

bool syncChildren(const LWDocument::Ptr &folder, const LWImportSettings &settings)
{
    if (!isSyncable(folder))
        return false;
    const QString folderPath = folder->fullPath();
    LWFolderLoader loader(importRoot(folder), settings);
    const std::vector<LWFolderEntry> entries = loader.listing(folderPath);

    QHash<QString, LWDocument::Ptr> existing;
    existing.reserve(static_cast<qsizetype>(folder->children().size()));
    for (const LWDocument::Ptr &child : folder->children())
        existing.insert(keyOf(child->label(), child->isExpandable()), child);

    QSet<QString> onDisk;
    onDisk.reserve(static_cast<qsizetype>(entries.size()));
    LWDocument::List newFolders;
    LWDocument::List newFiles;
    for (const LWFolderEntry &entry : entries) {
        const QString key = keyOf(entry.name, entry.isFolder);
        onDisk.insert(key);
        if (existing.contains(key))
            continue;
        LWDocument::Ptr node = loader.childNode(folderPath, entry);
        node->setParent(folder);
        (entry.isFolder && settings.foldersOnTop ? newFolders : newFiles).push_back(std::move(node));
    }

    LWDocument::List children;
    children.reserve(entries.size() + 1);
    bool removed = false;
    for (const LWDocument::Ptr &child : folder->children()) {
        const bool stays = child->isUntitled() || onDisk.contains(keyOf(child->label(), child->isExpandable()))
                           || holdsUnsavedWork(child);
        if (stays)
            children.push_back(child);
        else
            removed = true;
    }
    if (!removed && newFolders.empty() && newFiles.empty())
        return false;

    // New folders go after the folders already listed first, new files at the end.
    auto afterFolders = children.begin();
    while (afterFolders != children.end() && (*afterFolders)->isExpandable())
        ++afterFolders;
    if (settings.foldersOnTop)
        children.insert(afterFolders, newFolders.begin(), newFolders.end());
    children.insert(children.end(), newFiles.begin(), newFiles.end());
    folder->setChildren(children);
    qInfo().noquote() << QStringLiteral("Folder %1 brought in line with the disk").arg(folderPath);
    return true;
}

}
