#pragma once

#include "documents/LWDocument.h"

#include <QSet>
#include <QTreeWidget>

class LWDocumentTree;

// The sidebar: the workspace groups with their files and folders. Choosing a
// row reports its node; rows are matched to nodes by identity, then by path.
// Rebuilding the rows keeps the open folders open and the selection selected.
class WorkspaceOutline : public QTreeWidget
{
    Q_OBJECT

public:
    explicit WorkspaceOutline(QWidget *parent = nullptr);

    void reload(const LWDocumentTree &tree);
    // Brings the rows below the folder's row in line with its children,
    // keeping the rows (and so the open state and selection) of children
    // that stayed.
    void refreshChildren(const LWDocument::Ptr &folder);
    void select(const LWDocument::Ptr &document);
    void expand(const LWDocument::Ptr &document, bool withChildren);
    LWDocument::Ptr selected() const;
    // The file of the nearest file row after (step 1) or before (step -1)
    // the selected row; null without a selection or such a row.
    LWDocument::Ptr nearestDocumentRow(int step) const;

signals:
    void documentChosen(const LWDocument::Ptr &document);
    // Every row is about to be rebuilt.
    void reloading();
    void folderExpanded(const LWDocument::Ptr &folder);
    void folderCollapsed(const LWDocument::Ptr &folder);

private:
    QTreeWidgetItem *newItem(const LWDocument::Ptr &node);
    void addNode(QTreeWidgetItem *parentItem, const LWDocument::Ptr &node);
    void removeItem(QTreeWidgetItem *item);
    void forgetItem(QTreeWidgetItem *item);
    QTreeWidgetItem *itemFor(const LWDocument::Ptr &document) const;
    LWDocument::Ptr nodeOf(const QTreeWidgetItem *item) const;
    static QString expansionKey(const LWDocument &node);
    QSet<QString> expandedKeys() const;
    void restoreExpansion(const QSet<QString> &keys);

    QHash<const QTreeWidgetItem *, std::weak_ptr<LWDocument>> nodes;
    QHash<const LWDocument *, QTreeWidgetItem *> items;
};
