#pragma once

#include "documents/LWDocument.h"

#include <QString>

#include <atomic>

// One node's filtered children for one filter text. The sidebar asks for
// filtered children row by row, so the list is kept until the filter text
// changes or anything in the workspace changes (any node's children or
// label), which bumps a shared generation number.
class LWDocumentFilterCache
{
public:
    // Marks every cached filter result as stale.
    static void workspaceChanged();
    // Grows each time the workspace changes.
    static quint64 currentGeneration() { return generation.load(std::memory_order_relaxed); }

    // The cached list if it is for this filter and still current, else null.
    const LWDocument::List *lookup(const QString &filter) const;
    const LWDocument::List &store(const QString &filter, LWDocument::List children);

private:
    static std::atomic<quint64> generation;

    QString filterText;
    quint64 storedGeneration = 0;
    bool valid = false;
    LWDocument::List filtered;
};
