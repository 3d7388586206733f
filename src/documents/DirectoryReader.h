#pragma once

#include <QString>
#include <QVector>

// One entry of a folder as the directory read returns it.
struct DirectoryEntry
{
    QString name;
    unsigned char type = 0; // the dirent d_type (DT_UNKNOWN when the file system gives none)

    // True when the entry is a directory or a symbolic link to one. Uses the
    // type the directory read gave and stats only when that is unknown or a link.
    bool isFolderIn(const QString &folder) const;
    // True only for a real directory (a link to one does not count), so that
    // recursive walks cannot loop through links.
    bool isDirectoryIn(const QString &folder) const;
};

// Reads a folder's entries ("." and ".." left out) in directory order, with
// one readdir pass and no sorting, so that very large trees list cheaply.
namespace DirectoryReader {

// The entries, or an empty list (after a log line) when the folder cannot be read.
QVector<DirectoryEntry> read(const QString &folder);

}
