#pragma once

#include "documents/LWDocument.h"

#include <QTabBar>

#include <vector>

// The tab bar over the editor: one tab per opened node; choosing a tab
// reports its node.
class DocumentTabs : public QTabBar
{
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget *parent = nullptr);

    // Adds a tab for the node and makes it the current one.
    void addDocument(const LWDocument::Ptr &document);
    // Selects the node's tab. A node without one takes over a tab whose node
    // is gone (such as the placeholder shown while the workspace is
    // imported), else gets a new tab, so no open document's tab is taken over.
    void showDocument(const LWDocument::Ptr &document);

    // The nodes shown in tabs, in tab order (tabs whose node is gone are left out).
    std::vector<LWDocument::Ptr> openDocuments() const;
    // The node of the selected tab, or null.
    LWDocument::Ptr selectedDocument() const;

signals:
    void documentChosen(const LWDocument::Ptr &document);
    // A tab was added or removed, or shows another node.
    void tabsChanged();

protected:
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private:
    std::vector<std::weak_ptr<LWDocument>> documents;
};
