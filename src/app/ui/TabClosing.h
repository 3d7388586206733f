#pragma once

#include "documents/LWDocument.h"

#include <QObject>

#include <functional>

class LWDocumentManager;
class ShellDialogs;
class TabBarView;
class TabCell;

// Closes document tabs without losing text: a tab whose document has unsaved
// changes is brought to the front and the user is asked to save, not to save
// or to cancel. Not saving closes the tab and puts the document back to its
// file's text. Closing the last tab leaves the editor empty.
class TabClosing : public QObject
{
    Q_OBJECT

public:
    using Manager = std::function<LWDocumentManager &()>;

    // save: the File menu's save of the current document.
    TabClosing(TabBarView &tabBar, Manager manager, ShellDialogs &dialogs, std::function<void()> save);

    // closed runs once the tab is gone (not when the user cancels).
    void close(TabCell *tab, const std::function<void()> &closed = {});
    // Closes the tabs from the last to the first, stopping at a cancel.
    void closeAll();

private:
    void askToSave(const LWDocument::Ptr &document, const std::function<void()> &closed);
    void saveAndClose(const LWDocument::Ptr &document, const std::function<void()> &closed);
    void closeDiscarding(const LWDocument::Ptr &document, const std::function<void()> &closed);
    void remove(TabCell *tab);

    TabBarView &tabBar;
    Manager manager;
    ShellDialogs &dialogs;
    std::function<void()> save;
};
