#pragma once

#include "documents/LWDocument.h"

#include <QVariantList>

// The sidebar's context menu as menu description dictionaries, by the kind
// of the clicked node, and which of its entries may be chosen for that node.
namespace LWOutlineMenuEntries {

// The template of a new remote mapping; its values are placeholders.
extern const char *const RemoteMappingTemplate;

QVariantList entriesFor(const LWDocument &node);
// Every entry is disabled when no node was clicked.
bool isEnabled(const QString &title, const LWDocument *node);

}
