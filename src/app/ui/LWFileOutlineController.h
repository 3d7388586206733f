#pragma once

#include "app/ui/OutlineIcons.h"
#include "documents/LWDocument.h"
#include "documents/LWOutlineOrder.h"

#include <QAbstractItemModel>

#include <unordered_map>

class LWDocumentTree;

// The sidebar's rows over the workspace tree: the groups at the top, under
// each group and folder its children (or, while the filter field holds text,
// those that pass the filter), folders first and by natural name order. Rows
// are read from the nodes when the view asks for them: only the folders
// shown so far have a sorted row list, kept until their children change.
// Bringing the rows in line with the tree moves, inserts and removes only
// the rows that differ, so open folders stay open and the selection stays.
// Editing a row's name renames the node (and its item on disk); rows drag
// as their file's path and take drops of paths (see LWOutlineDrop).
class LWFileOutlineController : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit LWFileOutlineController(QObject *parent = nullptr);

    // Shows the tree's groups and brings every shown row list in line.
    void reload(const LWDocumentTree &tree);
    // Brings the rows below one shown node in line with its children.
    void refreshChildren(const LWDocument::Ptr &folder);
    // Rows are rebuilt for the new text; nothing stays open.
    void setFilterText(const QString &text);
    QString filterText() const { return filter; }

    LWDocument::Ptr nodeAt(const QModelIndex &index) const;
    // Invalid when the node has no row (not shown, or filtered out).
    QModelIndex indexOf(const LWDocument::Ptr &node) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDropActions() const override;
    Qt::DropActions supportedDragActions() const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

signals:
    // A rename was refused; the message says why.
    void renameRefused(const QString &message);

private:
    // Where a shown node's row is: its shown parent (null for the groups) and row.
    struct Place
    {
        const LWDocument *parent = nullptr;
        int row = 0;
    };
    // The rows below one node and the children (with their names) they were made from.
    struct RowList
    {
        LWDocument::List rows;
        LWOutlineOrder::Snapshot source;
    };

    // A row list that no longer matches its node's children, and the rows it should have.
    struct Change
    {
        const LWDocument *node;
        LWDocument::List wanted;
        LWOutlineOrder::Snapshot source;
    };

    const RowList &rowList(const LWDocument *node) const;
    LWDocument::List childrenToShow(const LWDocument &node) const;
    static LWOutlineOrder::Snapshot sourceOf(const LWDocument::List &children);
    static bool madeFrom(const RowList &list, const LWDocument::List &children);
    QModelIndex indexOfShown(const LWDocument *node) const;
    void renumber(const LWDocument *parent) const;
    void forgetRowsBelow(const LWDocument *node);
    void syncBelow(const LWDocument *node);
    std::vector<Change> changesBelow(const LWDocument *node);
    void announceCellsChanged();
    void removeRowsGone(const LWDocument *node, const QModelIndex &parent, const LWDocument::List &wanted);
    void placeWanted(const LWDocument *node, const QModelIndex &parent, const LWDocument::List &wanted);
    QString refusalOfName(const LWDocument &node, const QString &name) const;

    LWDocument::List groups;
    QString filter;
    mutable std::unordered_map<const LWDocument *, RowList> rowLists;
    mutable std::unordered_map<const LWDocument *, Place> places;
    mutable OutlineIcons icons;
    mutable LWOutlineOrder order;
};
