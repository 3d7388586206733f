#include "app/ui/WorkspaceOutline.h"

#include "documents/LWDocumentTree.h"

WorkspaceOutline::WorkspaceOutline(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *item) {
        const LWDocument::Ptr node = nodeOf(item);
        if (node && node->isFile())
            emit documentChosen(node);
    });
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem *item) {
        if (const LWDocument::Ptr node = nodeOf(item))
            emit folderExpanded(node);
    });
    connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem *item) {
        if (const LWDocument::Ptr node = nodeOf(item))
            emit folderCollapsed(node);
    });
}

void WorkspaceOutline::reload(const LWDocumentTree &tree)
{
    const LWDocument::Ptr wasSelected = selected();
    const QSet<QString> wasExpanded = expandedKeys();
    emit reloading();
    clear();
    nodes.clear();
    items.clear();
    for (const LWDocument::Ptr &group : tree.groups())
        addNode(nullptr, group);
    restoreExpansion(wasExpanded);
    if (wasSelected)
        select(wasSelected);
}

QTreeWidgetItem *WorkspaceOutline::newItem(const LWDocument::Ptr &node)
{
    auto *item = new QTreeWidgetItem;
    item->setText(0, node->saved() || !node->isFile() ? node->label() : node->label() + QStringLiteral(" *"));
    nodes.insert(item, node);
    items.insert(node.get(), item);
    for (const LWDocument::Ptr &child : node->children())
        item->addChild(newItem(child));
    return item;
}

void WorkspaceOutline::addNode(QTreeWidgetItem *parentItem, const LWDocument::Ptr &node)
{
    QTreeWidgetItem *item = newItem(node);
    if (parentItem)
        parentItem->addChild(item);
    else
        addTopLevelItem(item);
}

void WorkspaceOutline::refreshChildren(const LWDocument::Ptr &folder)
{
    QTreeWidgetItem *folderItem = folder ? items.value(folder.get()) : nullptr;
    if (!folderItem)
        return;
    const LWDocument::List &children = folder->children();
    QSet<const LWDocument *> wanted;
    wanted.reserve(static_cast<qsizetype>(children.size()));
    for (const LWDocument::Ptr &child : children)
        wanted.insert(child.get());
    const auto hasRowHere = [&](const LWDocument *node) {
        const QTreeWidgetItem *item = items.value(node);
        return item && item->parent() == folderItem;
    };
    // Rows of children that stayed keep their order, so one pass drops the
    // rows of children that went and inserts runs of rows for new children.
    int row = 0;
    for (size_t index = 0; index < children.size();) {
        QTreeWidgetItem *existing = row < folderItem->childCount() ? folderItem->child(row) : nullptr;
        const LWDocument *child = children[index].get();
        const LWDocument *shown = existing ? nodes.value(existing).lock().get() : nullptr;
        if (existing && shown == child) {
            ++row;
            ++index;
        } else if (existing && (hasRowHere(child) || !wanted.contains(shown))) {
            removeItem(existing);
        } else {
            QList<QTreeWidgetItem *> run;
            while (index < children.size() && !hasRowHere(children[index].get()))
                run.append(newItem(children[index++]));
            folderItem->insertChildren(row, run);
            row += static_cast<int>(run.size());
        }
    }
    while (folderItem->childCount() > row)
        removeItem(folderItem->child(row));
}

void WorkspaceOutline::removeItem(QTreeWidgetItem *item)
{
    forgetItem(item);
    delete item;
}

void WorkspaceOutline::forgetItem(QTreeWidgetItem *item)
{
    for (int index = 0; index < item->childCount(); ++index)
        forgetItem(item->child(index));
    const auto found = items.constFind(nodes.value(item).lock().get());
    if (found != items.cend() && found.value() == item)
        items.erase(found);
    nodes.remove(item);
}

QString WorkspaceOutline::expansionKey(const LWDocument &node)
{
    return node.isUntitled() ? node.identity() : node.fullPath();
}

QSet<QString> WorkspaceOutline::expandedKeys() const
{
    QSet<QString> keys;
    for (auto it = nodes.cbegin(); it != nodes.cend(); ++it) {
        if (it.key()->isExpanded())
            if (const LWDocument::Ptr node = it.value().lock())
                keys.insert(expansionKey(*node));
    }
    return keys;
}

void WorkspaceOutline::restoreExpansion(const QSet<QString> &keys)
{
    for (auto it = items.cbegin(); it != items.cend(); ++it) {
        if (keys.contains(expansionKey(*it.key())))
            it.value()->setExpanded(true);
    }
}

LWDocument::Ptr WorkspaceOutline::nodeOf(const QTreeWidgetItem *item) const
{
    return nodes.value(item).lock();
}

QTreeWidgetItem *WorkspaceOutline::itemFor(const LWDocument::Ptr &document) const
{
    if (!document)
        return nullptr;
    if (QTreeWidgetItem *same = items.value(document.get()))
        return same;
    if (document->isUntitled())
        return nullptr;
    for (auto it = nodes.cbegin(); it != nodes.cend(); ++it) {
        const LWDocument::Ptr node = it.value().lock();
        if (node && node->fullPath() == document->fullPath())
            return const_cast<QTreeWidgetItem *>(it.key());
    }
    return nullptr;
}

void WorkspaceOutline::select(const LWDocument::Ptr &document)
{
    QTreeWidgetItem *item = itemFor(document);
    if (!item)
        return;
    for (QTreeWidgetItem *up = item->parent(); up; up = up->parent())
        up->setExpanded(true);
    setCurrentItem(item);
    scrollToItem(item);
}

void WorkspaceOutline::expand(const LWDocument::Ptr &document, bool withChildren)
{
    QTreeWidgetItem *item = itemFor(document);
    if (!document) {
        for (int i = 0; i < topLevelItemCount(); ++i)
            expandRecursively(indexFromItem(topLevelItem(i)));
        return;
    }
    if (item && withChildren)
        expandRecursively(indexFromItem(item));
    else if (item)
        item->setExpanded(true);
}

LWDocument::Ptr WorkspaceOutline::selected() const
{
    return nodeOf(currentItem());
}

LWDocument::Ptr WorkspaceOutline::nearestDocumentRow(int step) const
{
    QTreeWidgetItem *item = currentItem();
    if (!item || !item->isSelected())
        return nullptr;
    while ((item = step > 0 ? itemBelow(item) : itemAbove(item))) {
        const LWDocument::Ptr node = nodeOf(item);
        if (node && node->isFile())
            return node;
    }
    return nullptr;
}
