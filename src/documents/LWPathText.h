#pragma once

#include <QString>

// Path arithmetic on plain strings, without touching the disk.
namespace LWPathText {

// "/a/b.txt" gives "b.txt"; trailing slashes are ignored; "/" stays "/".
QString lastComponent(const QString &path);

// "/a/b.txt" gives "/a", "/a" gives "/", "b.txt" gives "".
QString deletingLastComponent(const QString &path);

// Joins with exactly one "/" between the parts; an empty base gives the part.
QString appendingComponent(const QString &base, const QString &component);

// The text after the last "." of the last component, or "".
QString extension(const QString &path);

// The directory of a node below an imported root, relative to that root:
// every occurrence of the root followed by "/" removed from the full path,
// then the last component dropped ("R/a/b.txt" gives "a", "R/b.txt" "").
QString relativeDirectory(const QString &fullPath, const QString &root);

}
