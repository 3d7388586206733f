#pragma once

#include "documents/LWDocument.h"

// The order of a folder's rows in the sidebar: folders before files, each
// part by name the way file managers sort names, ignoring case and reading
// runs of digits as numbers ("file2" before "file10"). The tree keeps its
// own order; only the rows are sorted.
namespace LWOutlineOrder {

LWDocument::List sorted(const LWDocument::List &children);

}
