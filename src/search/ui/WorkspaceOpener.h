#pragma once

#include <QString>

#include <functional>

class LWDocumentManager;
class QWidget;
class ShellOutline;
class ShellPages;

// Opens a workspace file as a click on its sidebar row does (in its tab,
// switching to that tab when it has one), optionally at a line, and gives
// the editor the keyboard.
class WorkspaceOpener
{
public:
    using Documents = std::function<LWDocumentManager *()>;

    WorkspaceOpener(Documents documents, ShellOutline *outline, ShellPages *pages, QWidget *editorView);

    // False (after a log line) when the path is not a file of the workspace.
    bool open(const QString &fullPath, int line = 0) const;

private:
    Documents documents;
    ShellOutline *outline;
    ShellPages *pages;
    QWidget *editorView;
};
