#include "documents/LWOutlineDrop.h"

#include "documents/FileManager.h"
#include "documents/LWFolderSync.h"
#include "documents/LWPathText.h"

#include <QtDebug>

namespace LWOutlineDrop {

namespace {

LWDocument::Ptr findInWorkspace(const LWDocument::List &groups, const QString &path)
{
    for (const LWDocument::Ptr &group : groups) {
        if (LWDocument::Ptr found = group->childWithFullPath(path))
            return found;
    }
    return nullptr;
}

bool moveInside(const LWDocument::Ptr &dragged, const LWDocument::Ptr &target, quint64 index)
{
    const LWDocument::Ptr parent = dragged->parent();
    if (!parent) {
        qInfo().noquote() << QStringLiteral("A workspace group cannot be dropped into %1").arg(target->fullPath());
        return false;
    }
    if (parent != target) {
        dragged->moveToParent(target, index);
        return true;
    }
    if (index == LWDocument::NotFound)
        return false;
    target->moveChildDocument(dragged, index);
    return true;
}

// The copies are shown as a fresh look at the folder would show them.
bool copyIn(const QStringList &paths, const LWDocument::Ptr &target)
{
    for (const QString &path : paths)
        FileManager::copyToFolder(path, target->fullPath());
    LWFolderSync::syncChildren(target);
    return true;
}

}

bool accepts(const LWDocument::Ptr &target, const QStringList &paths)
{
    if (!target || paths.isEmpty())
        return false;
    if (target->hasChildWithLabel(LWPathText::lastComponent(paths.first())))
        return false;
    return target->isExpandable() && !target->isUntitled();
}

bool drop(const LWDocument::List &groups, const LWDocument::Ptr &target, quint64 index, const QStringList &paths)
{
    if (!accepts(target, paths))
        return false;
    if (const LWDocument::Ptr dragged = findInWorkspace(groups, paths.first()))
        return moveInside(dragged, target, index);
    return copyIn(paths, target);
}

}
