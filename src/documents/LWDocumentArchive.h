#pragma once

#include "documents/LWDocument.h"

#include <QByteArray>

// The archived form of a node and its whole subtree, used to keep or hand
// over nodes as objects. Fields are written in the order label, children,
// type, icon, path, full path, spec name, content (or its absence), saved,
// read-only, parent; the parent is recorded only as the enclosing archived
// node, and the dimmed icon is not archived. Decoding starts from bare nodes
// (no default spec is read) and assigns the fields in the same order.
namespace LWDocumentArchive {

QByteArray archive(const LWDocument &node);
// The decoded node, or null (after a log line) for data that is not an archive.
LWDocument::Ptr unarchive(const QByteArray &data);

}
