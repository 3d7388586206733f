#pragma once

#include "documents/LWDocument.h"

#include <QTreeView>

class LWDocumentTree;
class LWFileOutlineController;

// The sidebar's view of the workspace: group header rows, folders and files
// under them. Moving to a file's row (a click or the arrow keys) reports its
// node; a second click on the selected row, or F2, edits its name in place;
// Delete asks to delete the selected item; rows drag onto folders, and files
// dragged in from the desktop are copied in. Open rows stay open and the selection stays while
// the rows follow the tree.
class WorkspaceOutline : public QTreeView
{
    Q_OBJECT

public:
    explicit WorkspaceOutline(QWidget *parent = nullptr);

    LWFileOutlineController *rows() const { return controller; }

    void reload(const LWDocumentTree &tree);
    // Brings the rows below the folder's row in line with its children.
    void refreshChildren(const LWDocument::Ptr &folder);
    // The filter field's text: rows are rebuilt for it, and every match is
    // shown open.
    void setFilterText(const QString &text);
    // Selects the node's row, opening its parents; nothing for a node without a row.
    void select(const LWDocument::Ptr &document);
    using QTreeView::expand;
    // Null opens every group with everything below it.
    void expand(const LWDocument::Ptr &document, bool withChildren);
    void collapseAll(const LWDocument::Ptr &document);
    void startRenaming(const LWDocument::Ptr &document);
    LWDocument::Ptr selected() const;
    LWDocument::Ptr nodeAt(const QPoint &viewportPosition) const;
    // The file of the nearest file row after (step 1) or before (step -1)
    // the selected row; null without a selection or such a row.
    LWDocument::Ptr nearestDocumentRow(int step) const;

signals:
    void documentChosen(const LWDocument::Ptr &document);
    // Every row is about to be rebuilt.
    void reloading();
    void folderExpanded(const LWDocument::Ptr &folder);
    void folderCollapsed(const LWDocument::Ptr &folder);
    void contextMenuWanted(const LWDocument::Ptr &document, const QPoint &globalPosition);
    void deleteWanted(const LWDocument::Ptr &document);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void collapseBelow(const QModelIndex &index);

    LWFileOutlineController *controller;
    bool userMoving = false;
};
