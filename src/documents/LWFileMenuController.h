#pragma once

#include "documents/LWDocument.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

class LWDocumentManager;

// The File menu: new, new from template, open (a file or a folder), open in new tab, save, save
// as, save all and print, acting on the application's document manager. Close and
// close all exist only so that their menu items have targets: documents are
// closed from the tab bar.
class LWFileMenuController
{
public:
    explicit LWFileMenuController(LWDocumentManager &manager);

    void newAction();
    // The template record holds "filename" and "source".
    void newFromTemplateAction(const QVariantMap &templateRecord);
    void openAction();
    void openFolderAction();
    // Imports files and folders (dropped on the window or chosen) into the workspace.
    void openPaths(const QStringList &paths);
    void openInNewTab();
    // Opens a path from Open Recent.
    void openRecent(const QString &path);
    void closeAction() {}
    void closeAllAction() {}
    void saveAction();
    void saveAsAction();
    // Saves every unsaved file of the workspace that has a path; the current
    // one as Save does, so a file changed on disk still asks first. Untitled
    // files wait for their own Save As.
    void saveAllAction();
    void printAction();

    // Whether the item whose action has this name is enabled.
    bool validateMenuItem(const QString &action) const;

private:
    // Asks for a file or folder of the kinds allowed and opens it.
    void chooseAndOpen(bool files, bool folders);
    void addLooseFile(const LWDocument::Ptr &document);
    void confirmReplacing(const LWDocument::Ptr &document);

    LWDocumentManager &manager;
};
