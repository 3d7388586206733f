#pragma once

#include "documents/LWDocument.h"

#include <QObject>
#include <QStringList>

#include <functional>

// Builds workspace nodes for paths on a background thread, one path after
// the other, and hands each node to the main thread. The settings are read
// when the task starts, on the calling (main) thread; the background thread
// touches only the nodes it makes, so no node is shared while it runs. The
// callbacks run on the main thread, and only while the receiver still exists.
namespace LWImportTask {

using Started = std::function<void(qsizetype index)>;
using Built = std::function<void(qsizetype index, const QString &path, const LWDocument::Ptr &node)>;

void start(const QStringList &paths, QObject *receiver, const Started &started, const Built &built);

}
