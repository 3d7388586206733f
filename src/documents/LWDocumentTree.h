#pragma once

#include "documents/LWDocument.h"
#include "documents/LWFolderLoader.h"

#include <QStringList>

// The workspace: the ordered top-level groups of the sidebar. Group 0 is the
// "FILES" group of loose files; later groups are imported folders. The tree
// refuses to import the same folder or file twice (comparing paths as exact
// strings), finds nodes by full path and tells whether anything is unsaved.
class LWDocumentTree
{
public:
    // A tree with no groups at all; emptyTree() is the usual start.
    LWDocumentTree() = default;
    static LWDocumentTree emptyTree();

    const LWDocument::List &groups() const { return groupList; }
    // Group 0, or null in a tree without groups.
    LWDocument::Ptr filesGroup() const;

    void addTopLevelGroup(const LWDocument::Ptr &group);
    void addDocumentToFilesGroup(const LWDocument::Ptr &document);
    // Adds an untitled file to "FILES" and answers the "FILES" group itself.
    LWDocument::Ptr addEmpty();
    bool fileAlreadyExists(const QString &path) const;
    bool folderAlreadyExists(const QString &path) const;

    // Imports a file or folder; null (after an alert) for a duplicate, and
    // null (after a log line) for an empty path.
    LWDocument::Ptr addFromPath(const QString &path);
    // The two halves of addFromPath, so that the slow one can run on a
    // background thread: building the node from disk touches no tree, and
    // adopting it (with the duplicate check) happens where the tree lives.
    static LWDocument::Ptr nodeFromPath(const QString &path, const LWImportSettings &settings);
    LWDocument::Ptr adoptImported(const QString &path, const LWDocument::Ptr &node);

    void removeGroup(const LWDocument::Ptr &group);
    void refreshGroup(const LWDocument::Ptr &oldGroup, const LWDocument::Ptr &newGroup);
    LWDocument::Ptr documentWithFullPath(const QString &path) const;
    // True when nothing in the workspace is unsaved.
    bool unsavedChanges() const;

    // The paths to reopen next time: loose files, then imported folders;
    // untitled documents are left out.
    QStringList rememberedPaths() const;
    // The stored paths that still exist, in order.
    static QStringList restorablePaths(const QStringList &remembered);

private:
    // True (after the duplicate alert) when the path is already imported.
    bool refusesDuplicate(const QString &path, bool isFolder) const;

    LWDocument::List groupList;
};
