#include "documents/LWDocumentTree.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellRoles.h"
#include "documents/FileManager.h"

#include <QtDebug>

#include <algorithm>

LWDocumentTree LWDocumentTree::emptyTree()
{
    LWDocumentTree tree;
    tree.addTopLevelGroup(LWDocument::filesGroup());
    return tree;
}

LWDocument::Ptr LWDocumentTree::filesGroup() const
{
    return groupList.empty() ? nullptr : groupList.front();
}

void LWDocumentTree::addTopLevelGroup(const LWDocument::Ptr &group)
{
    groupList.push_back(group);
}

void LWDocumentTree::addDocumentToFilesGroup(const LWDocument::Ptr &document)
{
    if (groupList.empty())
        addTopLevelGroup(LWDocument::filesGroup());
    groupList.front()->addChildDocument(document);
}

LWDocument::Ptr LWDocumentTree::addEmpty()
{
    addDocumentToFilesGroup(LWDocument::emptyFile());
    return filesGroup();
}

bool LWDocumentTree::fileAlreadyExists(const QString &path) const
{
    const LWDocument::Ptr files = filesGroup();
    return files && std::any_of(files->children().cbegin(), files->children().cend(),
                                [&](const LWDocument::Ptr &child) { return child->fullPath() == path; });
}

bool LWDocumentTree::folderAlreadyExists(const QString &path) const
{
    return std::any_of(groupList.cbegin() + std::min<size_t>(1, groupList.size()), groupList.cend(),
                       [&](const LWDocument::Ptr &group) { return group->fullPath() == path; });
}

LWDocument::Ptr LWDocumentTree::addFromPath(const QString &path)
{
    if (!path.isEmpty() && refusesDuplicate(path, FileManager::isFolder(path)))
        return nullptr;
    return adoptImported(path, nodeFromPath(path, LWImportSettings::fromDefaults()));
}

LWDocument::Ptr LWDocumentTree::nodeFromPath(const QString &path, const LWImportSettings &settings)
{
    if (path.isEmpty()) {
        qWarning("Nothing to import: the path is empty");
        return nullptr;
    }
    if (FileManager::isFolder(path))
        return LWFolderLoader(path, settings).groupNode(path);
    return LWFolderLoader(QString(), settings).fileNode(path);
}

LWDocument::Ptr LWDocumentTree::adoptImported(const QString &path, const LWDocument::Ptr &node)
{
    if (!node || refusesDuplicate(path, node->isGroup()))
        return nullptr;
    if (node->isGroup())
        addTopLevelGroup(node);
    else
        addDocumentToFilesGroup(node);
    return node;
}

bool LWDocumentTree::refusesDuplicate(const QString &path, bool isFolder) const
{
    if (isFolder ? !folderAlreadyExists(path) : !fileAlreadyExists(path))
        return false;
    if (ShellDialogs *dialogs = ShellRoles::dialogs())
        dialogs->showAlert(isFolder ? QStringLiteral("This folder has already been imported")
                                  : QStringLiteral("This file has already been imported"),
                         path);
    return true;
}

void LWDocumentTree::removeGroup(const LWDocument::Ptr &group)
{
    groupList.erase(std::remove(groupList.begin(), groupList.end(), group), groupList.end());
}

void LWDocumentTree::refreshGroup(const LWDocument::Ptr &oldGroup, const LWDocument::Ptr &newGroup)
{
    std::replace(groupList.begin(), groupList.end(), oldGroup, newGroup);
}

LWDocument::Ptr LWDocumentTree::documentWithFullPath(const QString &path) const
{
    for (const LWDocument::Ptr &group : groupList) {
        if (LWDocument::Ptr found = group->childWithFullPath(path))
            return found;
    }
    return nullptr;
}

bool LWDocumentTree::unsavedChanges() const
{
    return std::all_of(groupList.cbegin(), groupList.cend(),
                       [](const LWDocument::Ptr &group) { return group->unsavedChanges(); });
}

QStringList LWDocumentTree::rememberedPaths() const
{
    QStringList paths;
    const auto remember = [&](const LWDocument::Ptr &node) {
        if (!node->fullPath().isEmpty())
            paths.append(node->fullPath());
    };
    if (const LWDocument::Ptr files = filesGroup())
        std::for_each(files->children().cbegin(), files->children().cend(), remember);
    std::for_each(groupList.cbegin() + std::min<size_t>(1, groupList.size()), groupList.cend(), remember);
    return paths;
}

QStringList LWDocumentTree::restorablePaths(const QStringList &remembered)
{
    QStringList existing;
    std::copy_if(remembered.cbegin(), remembered.cend(), std::back_inserter(existing), FileManager::fileExists);
    return existing;
}
