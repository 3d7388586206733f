#pragma once

#include "documents/LWDocument.h"
#include "documents/LWFolderLoader.h"

// Brings the children of one folder node (a folder or an imported group) in
// line with its folder on disk, without touching the rest of the tree: new
// entries are added as the import would make them (same filter, folders
// first when the settings ask for it, new folders with their contents),
// entries gone from disk are dropped, and a renamed entry shows under its new
// name. Children that stay keep their node, their place and their subtree.
// Children holding unsaved work are kept even when their file is gone, so
// that no text is lost. A node that is not a folder on disk is left alone,
// and an unreadable folder keeps its children (after a log line).
namespace LWFolderSync {

// True when the children changed.
bool syncChildren(const LWDocument::Ptr &folder,
                  const LWImportSettings &settings = LWImportSettings::fromDefaults());

}
