#pragma once

#include "search/WorkspaceFiles.h"
#include "search/ui/WorkspaceOpener.h"

#include <memory>

class CommandPalette;
class FindInFilesDialog;
class LWDocumentTree;
class QMainWindow;
class QuickOpen;

// The window's search commands and their menu items: File > Quick Open...
// (Ctrl+P), View > Command Palette... (Ctrl+Shift+P) and Find > Find in
// Files... (Ctrl+Shift+F). A chosen file or hit opens through the opener.
class SearchCommands
{
public:
    SearchCommands(QMainWindow *window, WorkspaceOpener::Documents documents, ShellOutline *outline,
                   ShellPages *pages, QWidget *editorView);
    ~SearchCommands();

    QuickOpen *quickOpen() const { return fileFinder; }
    CommandPalette *commandPalette() const { return palette; }
    FindInFilesDialog *findInFiles() const { return findDialog; }

private:
    void addMenuItems(QMainWindow *window);
    const LWDocumentTree *tree() const;
    WorkspaceFiles::List workspaceFiles() const;

    WorkspaceOpener opener;
    WorkspaceOpener::Documents documents;
    QuickOpen *fileFinder;
    CommandPalette *palette;
    FindInFilesDialog *findDialog;
};
