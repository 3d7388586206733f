#include "documents/LWOutlineOrder.h"

#include <QCollator>

#include <algorithm>

namespace LWOutlineOrder {

namespace {

struct SortEntry
{
    QCollatorSortKey key;
    LWDocument::Ptr node;
};

// The "C" locale compares plain character codes and knows no numbers in
// names, so a desktop without a language set sorts as English does.
QCollator naturalCollator()
{
    const QLocale system;
    QCollator collator(system.language() == QLocale::C ? QLocale(QLocale::English) : system);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

}

// Sort keys are made once per name, so that large folders sort quickly.
LWDocument::List sorted(const LWDocument::List &children)
{
    const QCollator collator = naturalCollator();
    std::vector<SortEntry> entries;
    entries.reserve(children.size());
    for (const LWDocument::Ptr &child : children)
        entries.push_back({collator.sortKey(child->label()), child});
    std::stable_sort(entries.begin(), entries.end(), [](const SortEntry &left, const SortEntry &right) {
        if (left.node->isFolder() != right.node->isFolder())
            return left.node->isFolder();
        const int order = left.key.compare(right.key);
        return order != 0 ? order < 0 : left.node->label() < right.node->label();
    });
    LWDocument::List result;
    result.reserve(entries.size());
    for (SortEntry &entry : entries)
        result.push_back(std::move(entry.node));
    return result;
}

}
