// Files handed over by the system or by later starts of the program, the
// line a start asks for, and the tabs of the last run.
#include "app/ui/LWAppDelegate.h"

#include "app/ui/DocumentTabs.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/WindowSession.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWFileMenuController.h"

void LWAppDelegate::openFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    if (started && droppedOpened.isEmpty()) {
        fileMenu->openPaths(paths);
        return;
    }
    droppedOpened << paths;
    dropOpened = true;
}

void LWAppDelegate::openRequest(const LWOpenRequest &request)
{
    if (request.line > 0 && !request.paths.isEmpty()) {
        pendingLinePath = request.paths.first();
        pendingLine = request.line;
    }
    openFiles(request.paths);
    mainWindow->show();
    mainWindow->raise();
    mainWindow->activateWindow();
}

// Runs after every switch and selection: the line is shown once its file is
// the one in the editor.
void LWAppDelegate::goToPendingLine()
{
    const LWDocument::Ptr current = documents->currentDocument();
    if (pendingLinePath.isEmpty() || !current || current->fullPath() != pendingLinePath)
        return;
    sendToEditor(QStringLiteral("lw.goToLine(%1);").arg(pendingLine));
    pendingLinePath.clear();
}

QStringList LWAppDelegate::openDocumentPaths() const
{
    QStringList paths;
    for (const LWDocument::Ptr &document : mainWindow->tabs()->openDocuments()) {
        if (!document->fullPath().isEmpty())
            paths << document->fullPath();
    }
    return paths;
}

void LWAppDelegate::reportOpenDocuments()
{
    emit openDocumentsChanged(openDocumentPaths());
}

void LWAppDelegate::restoreTabs()
{
    const LWDocumentTree &tree = documents->documentTree();
    for (const QString &path : WindowSession::openTabs()) {
        if (const LWDocument::Ptr document = tree.documentWithFullPath(path); document && document->isFile())
            mainWindow->tabs()->showDocument(document);
    }
    const LWDocument::Ptr selected = tree.documentWithFullPath(WindowSession::selectedTab());
    if (selected && selected->isFile()) {
        mainWindow->outline()->select(selected);
        openFromOutline(selected);
    }
}
