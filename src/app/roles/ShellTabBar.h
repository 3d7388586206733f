#pragma once

#include <QString>

#include <memory>

class LWDocument;

// The document tab bar above the editor.
class ShellTabBar
{
public:
    virtual ~ShellTabBar() = default;

    // A new active tab for a node, and the selected tab's title.
    virtual void addTabWithDocument(const std::shared_ptr<LWDocument> &document) = 0;
    virtual void setSelectedTabTitle(const QString &title) = 0;
    // Selects the node's tab, giving it one when it has none; every switch
    // of the editor calls it, so the bar always shows the editor's document.
    virtual void showTabForDocument(const std::shared_ptr<LWDocument> &document) = 0;
};
