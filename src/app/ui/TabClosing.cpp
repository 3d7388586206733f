#include "app/ui/TabClosing.h"

#include "app/roles/ShellDialogs.h"
#include "documents/LWDocumentManager.h"
#include "documents/ui/TabBarView.h"

#include <QtDebug>

TabClosing::TabClosing(TabBarView &tabBar, Manager manager, ShellDialogs &dialogs, std::function<void()> save)
    : tabBar(tabBar), manager(std::move(manager)), dialogs(dialogs), save(std::move(save))
{
    connect(&tabBar, &TabBarView::tabCloseRequested, this, [this](TabCell *tab) { close(tab); });
}

void TabClosing::close(TabCell *tab, const std::function<void()> &closed)
{
    if (tabBar.indexOf(tab) < 0)
        return;
    const LWDocument::Ptr document = tab->linkedDocument();
    if (!document || document->saved() || LWDocumentManager::showsAsImage(document)) {
        remove(tab);
        if (closed)
            closed();
        return;
    }
    tabBar.setAsActiveTab(tab);
    askToSave(document, closed);
}

void TabClosing::closeAll()
{
    if (TabCell *last = tabBar.tabAt(tabBar.count() - 1))
        close(last, [this] { closeAll(); });
}

// The answer comes later: the tab is looked up again by its document, since
// the user may have closed or moved it meanwhile.
void TabClosing::askToSave(const LWDocument::Ptr &document, const std::function<void()> &closed)
{
    const std::weak_ptr<LWDocument> weak = document;
    dialogs.showSaveQuestion(QStringLiteral("Do you want to save the changes you made to \u201c%1\u201d?")
                                 .arg(document->label()),
                             QStringLiteral("Your changes are lost if you don't save them."),
                             [this, weak, closed](int saving) {
                                 const LWDocument::Ptr document = weak.lock();
                                 if (!document || !tabBar.tabForDocument(document))
                                     return;
                                 if (saving)
                                     saveAndClose(document, closed);
                                 else
                                     closeDiscarding(document, closed);
                             });
}

// Saving may need the user again (a name for an untitled document, or
// leave to replace a file changed on disk); the tab then stays open.
void TabClosing::saveAndClose(const LWDocument::Ptr &document, const std::function<void()> &closed)
{
    if (manager().currentDocument() != document)
        tabBar.setAsActiveTab(tabBar.tabForDocument(document));
    save();
    if (!document->saved()) {
        qInfo("%s is not saved yet; its tab stays open", qPrintable(document->label()));
        return;
    }
    remove(tabBar.tabForDocument(document));
    if (closed)
        closed();
}

// Once another document (or none) is in the editor, the closed one goes
// back to its file's text (an untitled one to no text) and the sidebar
// drops its unsaved mark.
void TabClosing::closeDiscarding(const LWDocument::Ptr &document, const std::function<void()> &closed)
{
    remove(tabBar.tabForDocument(document));
    if (manager().currentDocument() == document) {
        qWarning("%s is still in the editor; its changes are kept", qPrintable(document->label()));
        return;
    }
    manager().reloadFromDisk(document);
    if (closed)
        closed();
}

void TabClosing::remove(TabCell *tab)
{
    tabBar.removeTabCell(tab);
    if (tabBar.count() == 0)
        manager().showNoDocument();
}
