#include "app/ui/LWFileOutlineController.h"

#include "documents/FileManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWOutlineDrop.h"
#include "documents/LWOutlineOrder.h"
#include "documents/LWPathText.h"

#include <QColor>
#include <QDir>
#include <QFont>
#include <QMimeData>
#include <QUrl>
#include <QtDebug>

#include <unordered_set>

namespace {

// Past this many rows coming and going in one folder, its rows are replaced
// as a whole instead of one run at a time.
constexpr size_t ManyChanges = 256;

const QColor HeaderTextColor(110, 110, 110);

LWDocument *nodeOfIndex(const QModelIndex &index)
{
    return index.isValid() ? static_cast<LWDocument *>(index.internalPointer()) : nullptr;
}

std::unordered_set<const LWDocument *> membersOf(const LWDocument::List &nodes)
{
    std::unordered_set<const LWDocument *> members;
    members.reserve(nodes.size());
    for (const LWDocument::Ptr &node : nodes)
        members.insert(node.get());
    return members;
}

QStringList localPaths(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data ? data->urls() : QList<QUrl>()) {
        if (url.isLocalFile())
            paths.append(QDir::cleanPath(url.toLocalFile()));
    }
    return paths;
}

}

LWFileOutlineController::LWFileOutlineController(QObject *parent) : QAbstractItemModel(parent) {}

// MARK: rows

LWDocument::List LWFileOutlineController::childrenToShow(const LWDocument &node) const
{
    return filter.isEmpty() ? node.children() : node.filteredChildren(filter);
}

LWOutlineOrder::Snapshot LWFileOutlineController::sourceOf(const LWDocument::List &children)
{
    LWOutlineOrder::Snapshot source;
    source.reserve(children.size());
    for (const LWDocument::Ptr &child : children)
        source.emplace_back(child.get(), child->label());
    return source;
}

bool LWFileOutlineController::madeFrom(const RowList &list, const LWDocument::List &children)
{
    return list.source.size() == children.size()
           && std::equal(children.cbegin(), children.cend(), list.source.cbegin(),
                         [](const LWDocument::Ptr &child, const LWOutlineOrder::Snapshot::value_type &made) {
                             return child.get() == made.first && child->label() == made.second;
                         });
}

const LWFileOutlineController::RowList &LWFileOutlineController::rowList(const LWDocument *node) const
{
    const auto found = rowLists.find(node);
    if (found != rowLists.end())
        return found->second;
    const LWDocument::List children = node ? childrenToShow(*node) : groups;
    RowList &made = rowLists[node];
    made.rows = node ? order.sorted(children) : children;
    made.source = sourceOf(children);
    renumber(node);
    return made;
}

void LWFileOutlineController::renumber(const LWDocument *parent) const
{
    const LWDocument::List &rows = rowLists[parent].rows;
    for (size_t row = 0; row < rows.size(); ++row)
        places[rows[row].get()] = {parent, static_cast<int>(row)};
}

void LWFileOutlineController::forgetRowsBelow(const LWDocument *node)
{
    const auto found = rowLists.find(node);
    if (found == rowLists.end())
        return;
    const LWDocument::List rows = std::move(found->second.rows);
    rowLists.erase(found);
    for (const LWDocument::Ptr &child : rows) {
        const auto place = places.find(child.get());
        if (place != places.end() && place->second.parent == node) {
            forgetRowsBelow(child.get());
            places.erase(place);
        }
    }
}

// MARK: bringing rows in line

void LWFileOutlineController::reload(const LWDocumentTree &tree)
{
    groups = tree.groups();
    syncBelow(nullptr);
}

void LWFileOutlineController::refreshChildren(const LWDocument::Ptr &folder)
{
    if (folder && rowLists.count(folder.get()) != 0)
        syncBelow(folder.get());
}

// Every shown row list under the node is compared with its node's children
// first; then the rows that went are removed everywhere before any are
// added, so that a node moving between two shown folders never has two rows.
void LWFileOutlineController::syncBelow(const LWDocument *node)
{
    std::vector<Change> changes = changesBelow(node);
    for (const Change &change : changes)
        if (rowLists.count(change.node) != 0)
            removeRowsGone(change.node, indexOfShown(change.node), change.wanted);
    for (Change &change : changes) {
        const auto shown = rowLists.find(change.node);
        if (shown == rowLists.end())
            continue;
        shown->second.source = std::move(change.source);
        placeWanted(change.node, indexOfShown(change.node), change.wanted);
    }
    announceCellsChanged();
}

std::vector<LWFileOutlineController::Change> LWFileOutlineController::changesBelow(const LWDocument *node)
{
    std::vector<Change> changes;
    std::vector<const LWDocument *> pending{node};
    while (!pending.empty()) {
        const LWDocument *next = pending.back();
        pending.pop_back();
        const auto shown = rowLists.find(next);
        if (shown == rowLists.end())
            continue;
        const LWDocument::List children = next ? childrenToShow(*next) : groups;
        if (!madeFrom(shown->second, children))
            changes.push_back({next, next ? order.updated(shown->second.rows, shown->second.source, children) : children,
                               sourceOf(children)});
        for (const LWDocument::Ptr &row : shown->second.rows)
            if (rowLists.count(row.get()) != 0)
                pending.push_back(row.get());
    }
    return changes;
}

// Names and icons (unsaved or not) may have changed in rows that stayed.
void LWFileOutlineController::announceCellsChanged()
{
    for (const auto &[shownNode, list] : rowLists) {
        const QModelIndex parent = indexOfShown(shownNode);
        if (!list.rows.empty() && (!shownNode || parent.isValid()))
            emit dataChanged(index(0, 0, parent), index(static_cast<int>(list.rows.size()) - 1, 0, parent));
    }
}

void LWFileOutlineController::removeRowsGone(const LWDocument *node, const QModelIndex &parent,
                                             const LWDocument::List &wanted)
{
    LWDocument::List &rows = rowLists[node].rows;
    std::unordered_set<const LWDocument *> kept = membersOf(wanted);
    const auto leaving = std::count_if(rows.cbegin(), rows.cend(),
                                       [&](const LWDocument::Ptr &row) { return kept.count(row.get()) == 0; });
    if (static_cast<size_t>(leaving) + (wanted.size() - (rows.size() - leaving)) > ManyChanges)
        kept.clear();
    for (int last = static_cast<int>(rows.size()) - 1; last >= 0;) {
        if (kept.count(rows[last].get()) != 0) {
            --last;
            continue;
        }
        int first = last;
        while (first > 0 && kept.count(rows[first - 1].get()) == 0)
            --first;
        beginRemoveRows(parent, first, last);
        // The nodes stay alive until the view has let go of their rows.
        const LWDocument::List going(rows.begin() + first, rows.begin() + last + 1);
        for (const LWDocument::Ptr &row : going) {
            const auto place = places.find(row.get());
            if (place != places.end() && place->second.parent == node) {
                forgetRowsBelow(row.get());
                places.erase(place);
            }
        }
        rows.erase(rows.begin() + first, rows.begin() + last + 1);
        renumber(node);
        endRemoveRows();
        last = first - 1;
    }
}

void LWFileOutlineController::placeWanted(const LWDocument *node, const QModelIndex &parent,
                                          const LWDocument::List &wanted)
{
    LWDocument::List &rows = rowLists[node].rows;
    const auto rowHere = [&](const LWDocument::Ptr &candidate) {
        const auto place = places.find(candidate.get());
        return place != places.end() && place->second.parent == node
                       && static_cast<size_t>(place->second.row) < rows.size()
                       && rows[place->second.row] == candidate
                   ? place->second.row
                   : -1;
    };
    for (int row = 0; row < static_cast<int>(wanted.size()); ++row) {
        if (row < static_cast<int>(rows.size()) && rows[row] == wanted[row])
            continue;
        const int from = rowHere(wanted[row]);
        if (from >= 0) {
            beginMoveRows(parent, from, from, parent, row);
            std::rotate(rows.begin() + row, rows.begin() + from, rows.begin() + from + 1);
            renumber(node);
            endMoveRows();
            continue;
        }
        int end = row;
        while (end < static_cast<int>(wanted.size()) && rowHere(wanted[end]) < 0)
            ++end;
        beginInsertRows(parent, row, end - 1);
        rows.insert(rows.begin() + row, wanted.begin() + row, wanted.begin() + end);
        renumber(node);
        endInsertRows();
        row = end - 1;
    }
}

void LWFileOutlineController::setFilterText(const QString &text)
{
    beginResetModel();
    filter = text;
    rowLists.clear();
    places.clear();
    endResetModel();
}

// MARK: nodes and indexes

LWDocument::Ptr LWFileOutlineController::nodeAt(const QModelIndex &index) const
{
    LWDocument *node = nodeOfIndex(index);
    return node ? node->shared_from_this() : nullptr;
}

QModelIndex LWFileOutlineController::indexOfShown(const LWDocument *node) const
{
    const auto place = node ? places.find(node) : places.end();
    if (place == places.end())
        return {};
    return createIndex(place->second.row, 0, const_cast<LWDocument *>(node));
}

QModelIndex LWFileOutlineController::indexOf(const LWDocument::Ptr &node) const
{
    std::vector<LWDocument *> chain;
    for (LWDocument::Ptr up = node; up; up = up->parent())
        chain.push_back(up.get());
    const LWDocument *shownParent = nullptr;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        rowList(shownParent);
        const auto place = places.find(*it);
        if (place == places.end() || place->second.parent != shownParent)
            return {};
        shownParent = *it;
    }
    return indexOfShown(shownParent);
}

QModelIndex LWFileOutlineController::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column != 0)
        return {};
    const LWDocument::List &rows = rowList(nodeOfIndex(parent)).rows;
    return row < static_cast<int>(rows.size()) ? createIndex(row, 0, rows[row].get()) : QModelIndex();
}

QModelIndex LWFileOutlineController::parent(const QModelIndex &child) const
{
    const auto place = places.find(nodeOfIndex(child));
    return place == places.end() ? QModelIndex() : indexOfShown(place->second.parent);
}

int LWFileOutlineController::rowCount(const QModelIndex &parent) const
{
    const LWDocument *node = nodeOfIndex(parent);
    if (parent.column() > 0 || (node && !node->isExpandable()))
        return 0;
    return static_cast<int>(rowList(node).rows.size());
}

int LWFileOutlineController::columnCount(const QModelIndex &) const
{
    return 1;
}

// Answered without sorting, so that closed folders cost nothing.
bool LWFileOutlineController::hasChildren(const QModelIndex &parent) const
{
    const LWDocument *node = nodeOfIndex(parent);
    if (node && !node->isExpandable())
        return false;
    const auto shown = rowLists.find(node);
    if (shown != rowLists.end())
        return !shown->second.rows.empty();
    if (!node)
        return !groups.empty();
    return filter.isEmpty() ? node->noOfChildren() > 0 : node->noOfChildrenFiltered(filter) > 0;
}

// MARK: cells

QVariant LWFileOutlineController::data(const QModelIndex &index, int role) const
{
    const LWDocument *node = nodeOfIndex(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return node->label();
    case Qt::ToolTipRole:
        return node->isUntitled() ? QVariant() : node->fullPath();
    case Qt::DecorationRole:
        return node->isGroup() ? QVariant() : QVariant(icons.iconFor(*node));
    case Qt::FontRole:
        if (node->isGroup()) {
            QFont header;
            header.setBold(true);
            return header;
        }
        return {};
    case Qt::ForegroundRole:
        return node->isGroup() ? QVariant(HeaderTextColor) : QVariant();
    default:
        return {};
    }
}

Qt::ItemFlags LWFileOutlineController::flags(const QModelIndex &index) const
{
    const LWDocument *node = nodeOfIndex(index);
    if (!node)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    if (node->isSelectable())
        flags |= Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
    if (node->isExpandable() && !node->isUntitled())
        flags |= Qt::ItemIsDropEnabled;
    if (node->isFile())
        flags |= Qt::ItemNeverHasChildren;
    return flags;
}

QString LWFileOutlineController::refusalOfName(const LWDocument &node, const QString &name) const
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("A name cannot be empty.");
    if (name.contains(QLatin1Char('/')))
        return QStringLiteral("A name cannot contain \"/\".");
    const LWDocument::Ptr parent = node.parent();
    const QString folder = LWPathText::deletingLastComponent(node.fullPath());
    if ((parent && parent->hasChildWithLabel(name))
        || (!node.isUntitled() && FileManager::fileExists(LWPathText::appendingComponent(folder, name))))
        return QStringLiteral("\"%1\" already exists in this folder.").arg(name);
    return {};
}

// Renaming renames the item on disk; a name that would replace another
// item, or that is no name, is refused and the row keeps its name.
bool LWFileOutlineController::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const LWDocument::Ptr node = nodeAt(index);
    const QString name = value.toString();
    if (!node || role != Qt::EditRole || name == node->label())
        return false;
    const QString refusal = refusalOfName(*node, name);
    if (!refusal.isEmpty()) {
        qInfo().noquote() << QStringLiteral("Not renaming %1 to \"%2\": %3").arg(node->label(), name, refusal);
        emit renameRefused(QStringLiteral("\"%1\" cannot be renamed to \"%2\". %3").arg(node->label(), name, refusal));
        return false;
    }
    node->renameWithLabel(name);
    emit dataChanged(index, index);
    // The row may move to its new place in the order once the editor has closed.
    const auto place = places.find(node.get());
    const LWDocument::Ptr shownParent = place != places.end() && place->second.parent
                                            ? const_cast<LWDocument *>(place->second.parent)->shared_from_this()
                                            : nullptr;
    QMetaObject::invokeMethod(this, [this, parent = std::weak_ptr<LWDocument>(shownParent)] {
        if (const LWDocument::Ptr folder = parent.lock())
            refreshChildren(folder);
    }, Qt::QueuedConnection);
    return true;
}

// MARK: drag and drop

QStringList LWFileOutlineController::mimeTypes() const
{
    return {QStringLiteral("text/uri-list"), QStringLiteral("application/octet-stream")};
}

// Only the first dragged row counts, and only with a place on disk.
QMimeData *LWFileOutlineController::mimeData(const QModelIndexList &indexes) const
{
    const LWDocument *node = indexes.isEmpty() ? nullptr : nodeOfIndex(indexes.first());
    if (!node || node->isUntitled() || node->isGroup())
        return nullptr;
    auto *data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(node->fullPath())});
    return data;
}

Qt::DropActions LWFileOutlineController::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

Qt::DropActions LWFileOutlineController::supportedDragActions() const
{
    return Qt::MoveAction;
}

bool LWFileOutlineController::canDropMimeData(const QMimeData *data, Qt::DropAction, int, int,
                                              const QModelIndex &parent) const
{
    return LWOutlineDrop::accepts(nodeAt(parent), localPaths(data));
}

// A drop between rows names the tree child shown in the row below it.
bool LWFileOutlineController::dropMimeData(const QMimeData *data, Qt::DropAction, int row, int,
                                           const QModelIndex &parent)
{
    const LWDocument::Ptr target = nodeAt(parent);
    if (!target)
        return false;
    const LWDocument::List &rows = rowList(target.get()).rows;
    const quint64 place = row >= 0 && row < static_cast<int>(rows.size()) ? target->indexOfChild(rows[row])
                                                                          : LWDocument::NotFound;
    if (!LWOutlineDrop::drop(groups, target, place, localPaths(data)))
        return false;
    QMetaObject::invokeMethod(this, [this] { syncBelow(nullptr); }, Qt::QueuedConnection);
    return true;
}
