#pragma once

#include "documents/LWDocument.h"
#include "search/FuzzyMatcher.h"

#include <QString>

#include <memory>
#include <vector>

class LWDocumentTree;

// The files of the workspace as one flat list: every file node of the loose
// files and of the imported folders (which already leave out what the
// workspace filter names), without version-control folders such as ".git".
namespace WorkspaceFiles {

struct File
{
    QString fullPath;
    // The imported folder the file lies in ("" for a loose file).
    QString root;
    std::weak_ptr<LWDocument> node;
};

using List = std::vector<File>;

// Walks the tree; for the window's thread, where the tree changes.
List collect(const LWDocumentTree &tree);

// What quick open shows of a file: the path below its imported folder, led
// by that folder's name, or the full path of a loose file.
QString displayPath(const File &file);

// One candidate per file, its name part being the file name. Touches only
// the list, so it may run on any thread.
std::vector<FuzzyMatcher::Candidate> candidates(const List &files);

// Changes whenever the tree may list other files.
QString stampOf(const LWDocumentTree &tree);

}
