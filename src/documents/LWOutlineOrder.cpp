#include "documents/LWOutlineOrder.h"

#include <algorithm>

namespace {

// Past this many names the kept keys are dropped and made again as needed.
constexpr qsizetype MaximumKeys = 1000000;
// Up to this many arrivals are placed one by one into the earlier order.
constexpr size_t FewArrivals = 64;

// The "C" locale compares plain character codes and knows no numbers in
// names, so a desktop without a language set sorts as English does.
QLocale sortingLocale()
{
    const QLocale system;
    return system.language() == QLocale::C ? QLocale(QLocale::English) : system;
}

struct SortEntry
{
    const QCollatorSortKey *key;
    LWDocument::Ptr node;
};

bool inOrder(const LWDocument &left, const QCollatorSortKey &leftKey, const LWDocument &right,
             const QCollatorSortKey &rightKey)
{
    if (left.isFolder() != right.isFolder())
        return left.isFolder();
    const int order = leftKey.compare(rightKey);
    return order != 0 ? order < 0 : left.label() < right.label();
}

}

LWOutlineOrder::LWOutlineOrder() : collator(sortingLocale())
{
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
}

const QCollatorSortKey &LWOutlineOrder::keyOf(const QString &name)
{
    auto found = keys.find(name);
    if (found == keys.end())
        found = keys.insert(name, collator.sortKey(name));
    return found.value();
}

LWDocument::List LWOutlineOrder::sorted(const LWDocument::List &children)
{
    if (keys.size() + static_cast<qsizetype>(children.size()) > MaximumKeys)
        keys.clear();
    // Keys are all made before any pointer to one is taken: the table may grow meanwhile.
    for (const LWDocument::Ptr &child : children)
        keyOf(child->label());
    std::vector<SortEntry> entries;
    entries.reserve(children.size());
    for (const LWDocument::Ptr &child : children)
        entries.push_back({&keyOf(child->label()), child});
    std::stable_sort(entries.begin(), entries.end(), [](const SortEntry &left, const SortEntry &right) {
        return inOrder(*left.node, *left.key, *right.node, *right.key);
    });
    LWDocument::List result;
    result.reserve(entries.size());
    for (SortEntry &entry : entries)
        result.push_back(std::move(entry.node));
    return result;
}

bool LWOutlineOrder::comesBefore(const LWDocument &left, const LWDocument &right)
{
    const QCollatorSortKey leftKey = keyOf(left.label());
    return inOrder(left, leftKey, right, keyOf(right.label()));
}

LWDocument::List LWOutlineOrder::updated(const LWDocument::List &sortedBefore, const Snapshot &before,
                                         const LWDocument::List &children)
{
    std::unordered_map<const LWDocument *, const QString *> namesBefore;
    namesBefore.reserve(before.size());
    for (const auto &[node, name] : before)
        namesBefore.emplace(node, &name);
    const auto stayed = [&](const LWDocument::Ptr &child) {
        const auto found = namesBefore.find(child.get());
        return found != namesBefore.end() && *found->second == child->label();
    };
    LWDocument::List arrived;
    for (const LWDocument::Ptr &child : children) {
        if (!stayed(child) && arrived.size() <= FewArrivals)
            arrived.push_back(child);
    }
    if (arrived.size() > FewArrivals)
        return sorted(children);
    std::unordered_map<const LWDocument *, bool> present;
    present.reserve(children.size());
    for (const LWDocument::Ptr &child : children)
        present.emplace(child.get(), stayed(child));
    LWDocument::List result;
    result.reserve(children.size());
    for (const LWDocument::Ptr &row : sortedBefore) {
        const auto found = present.find(row.get());
        if (found != present.end() && found->second)
            result.push_back(row);
    }
    for (const LWDocument::Ptr &child : arrived) {
        const auto place = std::upper_bound(result.begin(), result.end(), child,
                                            [this](const LWDocument::Ptr &node, const LWDocument::Ptr &row) {
                                                return comesBefore(*node, *row);
                                            });
        result.insert(place, child);
    }
    return result;
}
