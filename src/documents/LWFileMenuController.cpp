#include "documents/LWFileMenuController.h"

#include "app/LWShell.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWImportTask.h"

#include <QtDebug>

#include <algorithm>

LWFileMenuController::LWFileMenuController(LWDocumentManager &manager)
    : manager(manager)
{
}

void LWFileMenuController::newAction()
{
    addLooseFile(LWDocument::emptyFile());
}

void LWFileMenuController::newFromTemplateAction(const QVariantMap &templateRecord)
{
    addLooseFile(LWDocument::fileFromTemplate(templateRecord.value(QStringLiteral("filename")).toString(),
                                              templateRecord.value(QStringLiteral("source")).toString(),
                                              QLatin1String("")));
}

// Selecting the new node in the sidebar is what opens it in the editor.
void LWFileMenuController::addLooseFile(const LWDocument::Ptr &document)
{
    manager.documentTree().addDocumentToFilesGroup(document);
    const LWDocument::Ptr files = manager.documentTree().filesGroup();
    QMetaObject::invokeMethod(&manager, [document, files] {
        if (LWShell *shell = LWShell::instance()) {
            shell->reloadOutline();
            shell->selectInOutline(document);
            shell->expandInOutline(files, false);
        }
    }, Qt::QueuedConnection);
}

void LWFileMenuController::openAction()
{
    LWShell *shell = LWShell::instance();
    if (!shell)
        return;
    LWDocumentManager *owner = &manager;
    shell->showOpenDialog(true, true, {}, [owner](const QString &path) {
        if (LWShell *shell = LWShell::instance())
            shell->noteRecentDocument(path);
        LWImportTask::start({path}, owner, nullptr,
                            [owner](qsizetype, const QString &path, const LWDocument::Ptr &node) {
                                const LWDocument::Ptr adopted = owner->documentTree().adoptImported(path, node);
                                LWShell *shell = LWShell::instance();
                                if (!shell)
                                    return;
                                shell->reloadOutline();
                                if (adopted && adopted->isFile())
                                    shell->selectInOutline(adopted);
                                else if (adopted && adopted->isGroup())
                                    shell->expandInOutline(adopted, false);
                            });
    });
}

void LWFileMenuController::openInNewTab()
{
    if (LWShell *shell = LWShell::instance())
        shell->openOutlineSelectionInNewTab();
}

void LWFileMenuController::saveAction()
{
    const LWDocument::Ptr document = manager.currentDocument();
    if (!document) {
        qInfo("Nothing to save: no document is open");
        return;
    }
    if (document->isUntitled()) {
        saveAsAction();
        return;
    }
    document->save();
    if (LWShell *shell = LWShell::instance())
        shell->reloadOutline();
}

void LWFileMenuController::saveAsAction()
{
    LWShell *shell = LWShell::instance();
    const LWDocument::Ptr document = manager.currentDocument();
    if (!shell || !document)
        return;
    shell->showSaveDialog([document](const QString &path) {
        LWShell *shell = LWShell::instance();
        shell->noteRecentDocument(path);
        document->updatePath(path);
        document->save();
        shell->reloadOutline();
        shell->selectInOutline(document);
    });
}

void LWFileMenuController::printAction()
{
    const LWDocument::Ptr document = manager.currentDocument();
    LWShell *shell = LWShell::instance();
    if (shell && document)
        shell->printText(document->content().value_or(QString()));
}

void LWFileMenuController::closeAction()
{
    const LWDocument::Ptr document = manager.currentDocument();
    if (isLooseFile(document))
        closeLooseFiles({document});
}

void LWFileMenuController::closeAllAction()
{
    const LWDocument::Ptr files = manager.documentTree().filesGroup();
    if (files && files->noOfChildren() > 0)
        closeLooseFiles(files->children());
}

bool LWFileMenuController::isLooseFile(const LWDocument::Ptr &document) const
{
    return document && document->isFile() && document->parent() == manager.documentTree().filesGroup();
}

void LWFileMenuController::closeLooseFiles(const LWDocument::List &documents)
{
    const bool unsaved = std::any_of(documents.begin(), documents.end(),
                                     [](const LWDocument::Ptr &document) { return !document->saved(); });
    if (!unsaved) {
        removeLooseFiles(documents);
        return;
    }
    if (LWShell *shell = LWShell::instance())
        shell->showConfirmation(QStringLiteral("Are you sure?"),
                                QStringLiteral("Closing drops the unsaved changes."),
                                [this, documents](int answer) {
                                    if (answer == 1)
                                        removeLooseFiles(documents);
                                });
}

// The editor moves to the last loose file left, or to a new untitled one.
void LWFileMenuController::removeLooseFiles(const LWDocument::List &documents)
{
    const LWDocument::Ptr files = manager.documentTree().filesGroup();
    LWShell *shell = LWShell::instance();
    for (const LWDocument::Ptr &document : documents) {
        files->removeChildDocument(document);
        if (shell)
            shell->removeTabsOfDocument(document);
    }
    if (files->noOfChildren() == 0) {
        newAction();
        return;
    }
    if (shell) {
        shell->reloadOutline();
        shell->selectInOutline(files->children().back());
    }
}

bool LWFileMenuController::validateMenuItem(const QString &action) const
{
    if (action == QLatin1String("closeAction:"))
        return isLooseFile(manager.currentDocument());
    if (action != QLatin1String("openInNewTab:"))
        return true;
    LWShell *shell = LWShell::instance();
    const LWDocument::Ptr selected = shell ? shell->selectedInOutline() : nullptr;
    return selected && selected->isFile();
}
