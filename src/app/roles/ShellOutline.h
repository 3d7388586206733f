#pragma once

#include <memory>

class LWDocument;

// The sidebar outline of the workspace tree.
class ShellOutline
{
public:
    virtual ~ShellOutline() = default;

    // Selecting a node expands its parents first; expanding null expands
    // every top-level item with all its children.
    virtual void reloadOutline() = 0;
    virtual void selectInOutline(const std::shared_ptr<LWDocument> &document) = 0;
    virtual void expandInOutline(const std::shared_ptr<LWDocument> &document, bool withChildren) = 0;
    virtual std::shared_ptr<LWDocument> selectedInOutline() = 0;
    // The file of the nearest file row after (before) the selected row,
    // skipping folders and groups; null without a selection or such a row.
    virtual std::shared_ptr<LWDocument> nextDocumentInOutline() = 0;
    virtual std::shared_ptr<LWDocument> previousDocumentInOutline() = 0;
    // The sidebar menu's "Open in New Tab" for the selected row.
    virtual void openOutlineSelectionInNewTab() = 0;
    // The node the outline selects once it is shown.
    virtual void setDocumentToSelect(const std::shared_ptr<LWDocument> &document) = 0;
};
