#include "documents/LWDocumentFilterCache.h"

std::atomic<quint64> LWDocumentFilterCache::generation{1};

void LWDocumentFilterCache::workspaceChanged()
{
    generation.fetch_add(1, std::memory_order_relaxed);
}

const LWDocument::List *LWDocumentFilterCache::lookup(const QString &filter) const
{
    if (!valid || storedGeneration != generation.load(std::memory_order_relaxed)
        || filterText != filter)
        return nullptr;
    return &filtered;
}

const LWDocument::List &LWDocumentFilterCache::store(const QString &filter, LWDocument::List children)
{
    filterText = filter;
    storedGeneration = generation.load(std::memory_order_relaxed);
    valid = true;
    filtered = std::move(children);
    return filtered;
}
