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
    // The keyboard goes to the editor inside the page too: the view may have
    // kept Qt's focus while a popup had the keys, so the page is not told.
    pages->sendToEditor(line > 0 ? QStringLiteral("lw.goToLine(%1);").arg(line) : QStringLiteral("lw.editor.focus();"));
    editorView->setFocus();
    return true;
}
