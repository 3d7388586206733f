#include "app/ui/WorkspaceOutline.h"

#include "app/ui/LWFileOutlineController.h"
#include "app/ui/OutlineIcons.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

WorkspaceOutline::WorkspaceOutline(QWidget *parent)
    : QTreeView(parent), controller(new LWFileOutlineController(this))
{
    setModel(controller);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIconSize(QSize(OutlineIcons::Side, OutlineIcons::Side));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setDropIndicatorShown(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex &index) {
        if (const LWDocument::Ptr node = controller->nodeAt(index))
            emit folderExpanded(node);
    });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex &index) {
        if (const LWDocument::Ptr node = controller->nodeAt(index))
            emit folderCollapsed(node);
    });
    connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint &position) {
        emit contextMenuWanted(nodeAt(position), viewport()->mapToGlobal(position));
    });
}

void WorkspaceOutline::reload(const LWDocumentTree &tree)
{
    controller->reload(tree);
}

void WorkspaceOutline::refreshChildren(const LWDocument::Ptr &folder)
{
    controller->refreshChildren(folder);
}

// Opening everything is left out for an empty filter: a large workspace
// would open every folder it holds.
void WorkspaceOutline::setFilterText(const QString &text)
{
    if (text == controller->filterText())
        return;
    emit reloading();
    controller->setFilterText(text);
    for (int row = 0; row < controller->rowCount(); ++row) {
        const QModelIndex group = controller->index(row, 0);
        if (text.isEmpty())
            QTreeView::expand(group);
        else
            expandRecursively(group);
    }
}

void WorkspaceOutline::select(const LWDocument::Ptr &document)
{
    const QModelIndex index = document ? controller->indexOf(document) : QModelIndex();
    if (!index.isValid())
        return;
    for (QModelIndex up = index.parent(); up.isValid(); up = up.parent())
        QTreeView::expand(up);
    setCurrentIndex(index);
    scrollTo(index);
}

void WorkspaceOutline::expand(const LWDocument::Ptr &document, bool withChildren)
{
    if (!document) {
        for (int row = 0; row < controller->rowCount(); ++row)
            expandRecursively(controller->index(row, 0));
        return;
    }
    const QModelIndex index = controller->indexOf(document);
    if (withChildren)
        expandRecursively(index);
    else if (index.isValid())
        QTreeView::expand(index);
}

void WorkspaceOutline::collapseAll(const LWDocument::Ptr &document)
{
    collapseBelow(controller->indexOf(document));
}

// Only open rows are visited, so closed folders are never sorted for it.
void WorkspaceOutline::collapseBelow(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    for (int row = 0; isExpanded(index) && row < controller->rowCount(index); ++row)
        collapseBelow(controller->index(row, 0, index));
    collapse(index);
}

void WorkspaceOutline::startRenaming(const LWDocument::Ptr &document)
{
    const QModelIndex index = controller->indexOf(document);
    if (!index.isValid())
        return;
    select(document);
    edit(index);
}

LWDocument::Ptr WorkspaceOutline::selected() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : controller->nodeAt(rows.first());
}

LWDocument::Ptr WorkspaceOutline::nodeAt(const QPoint &viewportPosition) const
{
    return controller->nodeAt(indexAt(viewportPosition));
}

// A row the user moves to (by clicking or with the keys) opens its file;
// rows the program selects, or that become current because rows around them
// changed, open nothing.
void WorkspaceOutline::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    const LWDocument::Ptr node = userMoving ? controller->nodeAt(current) : nullptr;
    if (node && node->isFile())
        emit documentChosen(node);
}

void WorkspaceOutline::mousePressEvent(QMouseEvent *event)
{
    const QScopedValueRollback moving(userMoving, true);
    QTreeView::mousePressEvent(event);
}

void WorkspaceOutline::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Delete) && state() != QAbstractItemView::EditingState) {
        if (const LWDocument::Ptr node = selected())
            emit deleteWanted(node);
        return;
    }
    const QScopedValueRollback moving(userMoving, true);
    QTreeView::keyPressEvent(event);
}

LWDocument::Ptr WorkspaceOutline::nearestDocumentRow(int step) const
{
    QModelIndex row = currentIndex();
    if (!row.isValid() || !selectionModel()->isSelected(row))
        return nullptr;
    while ((row = step > 0 ? indexBelow(row) : indexAbove(row)).isValid()) {
        const LWDocument::Ptr node = controller->nodeAt(row);
        if (node && node->isFile())
            return node;
    }
    return nullptr;
}
