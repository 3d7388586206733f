#pragma once

#include "documents/LWDocument.h"

#include <QTreeWidget>

class LWDocumentTree;

// The sidebar: the workspace groups with their files and folders. Choosing a
// row reports its node; rows are matched to nodes by identity, then by path.
class WorkspaceOutline : public QTreeWidget
{
    Q_OBJECT

public:
    explicit WorkspaceOutline(QWidget *parent = nullptr);

    void reload(const LWDocumentTree &tree);
    void select(const LWDocument::Ptr &document);
    void expand(const LWDocument::Ptr &document, bool withChildren);
    LWDocument::Ptr selected() const;

signals:
    void documentChosen(const LWDocument::Ptr &document);

private:
    void addNode(QTreeWidgetItem *parentItem, const LWDocument::Ptr &node);
    QTreeWidgetItem *itemFor(const LWDocument::Ptr &document) const;
    LWDocument::Ptr nodeOf(const QTreeWidgetItem *item) const;

    QHash<const QTreeWidgetItem *, std::weak_ptr<LWDocument>> nodes;
};
