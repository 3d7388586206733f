#pragma once

#include "documents/LWDocument.h"

#include <QStringList>

// Paths dropped on a node of the sidebar. A path already in the workspace
// moves its node (and its item on disk) into the target; paths from outside
// are copied into the target's folder and shown there. Only a folder or an
// imported group on disk takes drops, and never one that already has an
// entry of the dropped name.
namespace LWOutlineDrop {

bool accepts(const LWDocument::Ptr &target, const QStringList &paths);
// index is the place among the target's children, NotFound for the end.
// Answers whether the workspace changed.
bool drop(const LWDocument::List &groups, const LWDocument::Ptr &target, quint64 index,
          const QStringList &paths);

}
