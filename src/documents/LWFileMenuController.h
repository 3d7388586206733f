#pragma once

#include "documents/LWDocument.h"

#include <QString>
#include <QVariantMap>

class LWDocumentManager;

// The File menu: new, new from template, open, open in new tab, save, save
// as, close, close all and print, acting on the application's document
// manager. The recent item exists only so that its menu item has a target.
// Closing takes loose files (the "FILES" group) out of the workspace and off
// the tab bar, after asking when that would drop unsaved changes; files of
// imported folders stay where they are.
class LWFileMenuController
{
public:
    explicit LWFileMenuController(LWDocumentManager &manager);

    void newAction();
    // The template record holds "filename" and "source".
    void newFromTemplateAction(const QVariantMap &templateRecord);
    void openAction();
    void openInNewTab();
    void openRecentAction() {}
    // The current document, when it is a loose file.
    void closeAction();
    // Every loose file; a new untitled file takes their place.
    void closeAllAction();
    void saveAction();
    void saveAsAction();
    void printAction();

    // Whether the item whose action has this name is enabled.
    bool validateMenuItem(const QString &action) const;

private:
    void addLooseFile(const LWDocument::Ptr &document);
    bool isLooseFile(const LWDocument::Ptr &document) const;
    void closeLooseFiles(const LWDocument::List &documents);
    void removeLooseFiles(const LWDocument::List &documents);

    LWDocumentManager &manager;
};
