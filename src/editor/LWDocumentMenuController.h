#pragma once

#include "documents/LWDocument.h"

#include <QObject>

#include <functional>

class QAction;
class ShellDialogs;
class ShellStatusBar;
class ShellWindow;

// The Document menu: go to line, scrolling, bookmarks, folding, the
// document's language and the per-extension language override. The current
// document comes from the given provider (it answers nullptr when none is open).
class LWDocumentMenuController : public QObject
{
    Q_OBJECT

public:
    using CurrentDocument = std::function<LWDocument::Ptr()>;

    // The window roles the menu asks: the line-number dialog, the language
    // pop-up's title and the plugin menus of the chosen language.
    struct Roles
    {
        ShellDialogs &dialogs;
        ShellStatusBar &statusBar;
        ShellWindow &window;
    };

    LWDocumentMenuController(CurrentDocument currentDocument, Roles roles, QObject *parent = nullptr);

    // Language items are checked for the document's language; the override
    // item is disabled when the registry already maps the extension to that
    // language, else checked while the user's map holds it. Items carry their
    // action's name as object name.
    Q_INVOKABLE bool validateMenuItem(QAction *item) const;

public slots:
    // Asks for a line number and sends it as typed.
    void goToLineAction(QAction *sender = nullptr);
    void scrollPageUpAction(QAction *sender = nullptr);
    void scrollPageDownAction(QAction *sender = nullptr);
    void scrollToSelectionAction(QAction *sender = nullptr);
    void bookmarkMarkCurrentAction(QAction *sender = nullptr);
    void bookmarkUnmarkCurrentAction(QAction *sender = nullptr);
    void bookmarkRemoveAllAction(QAction *sender = nullptr);
    void foldingFoldAllAction(QAction *sender = nullptr);
    void foldingUnfoldAllAction(QAction *sender = nullptr);
    void foldingFoldCurrentAction(QAction *sender = nullptr);
    void foldingUnfoldCurrentAction(QAction *sender = nullptr);
    // The item's data holds the LWSpec to switch the current document to.
    void setSpecAction(QAction *sender);
    // Stores the current extension's language in "LW_User_Extensions", or
    // removes it when it is stored already, and checks the item accordingly.
    void setDefaultForCurrentExtension(QAction *sender);

private:
    bool validateOverrideItem(QAction *item, const LWDocument &document) const;

    CurrentDocument currentDocument;
    Roles roles;
};
