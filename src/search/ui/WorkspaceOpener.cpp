#include "search/ui/WorkspaceOpener.h"

#include "app/roles/ShellOutline.h"
#include "app/roles/ShellPages.h"
#include "documents/LWDocumentManager.h"

#include <QWidget>

WorkspaceOpener::WorkspaceOpener(Documents documents, ShellOutline *outline, ShellPages *pages, QWidget *editorView)
    : documents(std::move(documents)), outline(outline), pages(pages), editorView(editorView)
{
}

bool WorkspaceOpener::open(const QString &fullPath, int line) const
{
    LWDocumentManager *manager = documents();
    const LWDocument::Ptr node = manager ? manager->documentTree().documentWithFullPath(fullPath) : nullptr;
    if (!node || !node->isFile()) {
        qInfo("Not opened: %s is no longer in the workspace", qPrintable(fullPath));
        return false;
    }
    outline->selectInOutline(node);
    if (line > 0)
        pages->sendToEditor(QStringLiteral("lw.goToLine(%1);").arg(line));
    editorView->setFocus();
    return true;
}
