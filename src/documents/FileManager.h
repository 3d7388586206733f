#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

// Path operations on plain path strings: the subject path always comes first.
// Nothing here throws or reports failure to the caller; failures are logged
// with a fixed line and otherwise ignored. No state is kept, so every function
// may be called from any thread (except the three that open things on the
// desktop, which belong on the main thread).
namespace FileManager {

// Item operations.
void copyTo(const QString &path, const QString &destination);
void copyToPath(const QString &path, const QString &destination);
void copyToFolder(const QString &path, const QString &folder);
// Copies a file or folder tree beside the destination, then swaps it into place.
void recursiveCopyToPath(const QString &path, const QString &destination);
void moveTo(const QString &path, const QString &destination);
void renameAs(const QString &path, const QString &newPath);
// Removes the item permanently, folders with their contents.
void deleteFile(const QString &path);
// Creates the folder with any missing intermediate folders.
void createAsFolder(const QString &path);
// The folder joined with the first name the format (holding one "%d") makes
// for n = 1, 2, 3, ... that does not exist yet.
QString uniqueFileWithFormat(const QString &folder, const QString &format);

// Desktop hand-offs.
void showInFinder(const QString &path);
void showInBrowser(const QString &path);
void openInBrowser(const QString &url);

// File facts; a missing item gives false, zero or an empty value.
bool fileExists(const QString &path);
bool isFolder(const QString &path);
bool isFileHidden(const QString &path);
bool isTextFile(const QString &path);
qint32 getFileSize(const QString &path);
QDateTime getDateModified(const QString &path);
QVariantMap fileAttributes(const QString &path);

// Folder listings, all in directory order. The filter is a case-insensitive
// regular expression: entries whose name it matches anywhere are left out.
QStringList folderContentsWithPath(const QString &folder, bool fullPaths, bool backReference,
                                   bool showHidden, const QString &filter);
// The same entries with all folders first, each part in directory order.
QStringList folderContentsDirectoryTopWithPath(const QString &folder, bool fullPaths,
                                               bool backReference, bool showHidden,
                                               const QString &filter);
QStringList folderContentsWithPath(const QString &folder, bool fullPaths, bool backReference,
                                   bool showHidden);
QStringList folderContents(const QString &folder);

using NamePredicate = std::function<bool(const QString &name)>;
QStringList folderContentsUsingPredicate(const QString &folder, const NamePredicate &predicate,
                                         bool addPath = false);
QStringList folderContentsUsingPredicateWithoutExtension(const QString &folder,
                                                         const NamePredicate &predicate,
                                                         bool addPath);
// Entries whose names end with "." and the extension.
QStringList folderContentsOfType(const QString &folder, const QString &extension);
QStringList folderContentsWithoutPathOfType(const QString &folder, const QString &extension);
QStringList folderContentsWithoutPathAndExtensionOfType(const QString &folder,
                                                        const QString &extension);

// Nested descriptions of a folder. getFileTree: {"name", "children"} from the
// folder itself down. The variants without root: the folder's entries as
// {"label", "fullPath", "path" (relative to the starting folder), "children"}.
// Symbolic links are listed but not descended into.
QVariantMap getFileTree(const QString &folder);
QVariantList getFileTreeWithoutRoot(const QString &folder);
QVariantList getFileTreeWithoutRootWithPath(const QString &folder, const QString &relativePath);

// The last path component, ignoring a trailing slash.
QString lastPathComponent(const QString &path);
// The name without its last extension (".profile" keeps its dot).
QString deletingPathExtension(const QString &name);

}
