#pragma once

#include "documents/LWDocument.h"

#include <QCollator>
#include <QHash>

#include <unordered_map>
#include <utility>
#include <vector>

// The order of a folder's rows in the sidebar: folders before files, each
// part by name the way file managers sort names, ignoring case and reading
// runs of digits as numbers ("file2" before "file10"). The tree keeps its
// own order; only the rows are sorted. The comparison key of each name is
// made once and kept, so sorting a large folder again is quick.
class LWOutlineOrder
{
public:
    LWOutlineOrder();

    // The children as they were when sortedBefore was made from them, by node and name.
    using Snapshot = std::vector<std::pair<const LWDocument *, QString>>;

    LWDocument::List sorted(const LWDocument::List &children);
    // The children in order, reusing the order of an earlier sorted list
    // when only a few children arrived (or were renamed) since.
    LWDocument::List updated(const LWDocument::List &sortedBefore, const Snapshot &before,
                             const LWDocument::List &children);

private:
    const QCollatorSortKey &keyOf(const QString &name);
    bool comesBefore(const LWDocument &left, const LWDocument &right);

    QCollator collator;
    QHash<QString, QCollatorSortKey> keys;
};
