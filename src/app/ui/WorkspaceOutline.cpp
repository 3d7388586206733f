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
}

void WorkspaceOutline::reload(const LWDocumentTree &tree)
{
    const LWDocument::Ptr wasSelected = selected();
    clear();
    nodes.clear();
    for (const LWDocument::Ptr &group : tree.groups())
        addNode(nullptr, group);
    if (wasSelected)
        select(wasSelected);
}

void WorkspaceOutline::addNode(QTreeWidgetItem *parentItem, const LWDocument::Ptr &node)
{
    auto *item = parentItem ? new QTreeWidgetItem(parentItem) : new QTreeWidgetItem(this);
    item->setText(0, node->saved() || !node->isFile() ? node->label() : node->label() + QStringLiteral(" *"));
    nodes.insert(item, node);
    for (const LWDocument::Ptr &child : node->children())
        addNode(item, child);
}

LWDocument::Ptr WorkspaceOutline::nodeOf(const QTreeWidgetItem *item) const
{
    return nodes.value(item).lock();
}

QTreeWidgetItem *WorkspaceOutline::itemFor(const LWDocument::Ptr &document) const
{
    if (!document)
        return nullptr;
    QTreeWidgetItem *samePath = nullptr;
    for (auto it = nodes.cbegin(); it != nodes.cend(); ++it) {
        const LWDocument::Ptr node = it.value().lock();
        if (node == document)
            return const_cast<QTreeWidgetItem *>(it.key());
        if (node && !document->isUntitled() && node->fullPath() == document->fullPath())
            samePath = const_cast<QTreeWidgetItem *>(it.key());
    }
    return samePath;
}

void WorkspaceOutline::select(const LWDocument::Ptr &document)
{
    QTreeWidgetItem *item = itemFor(document);
    if (!item)
        return;
    for (QTreeWidgetItem *up = item->parent(); up; up = up->parent())
        up->setExpanded(true);
    setCurrentItem(item);
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
