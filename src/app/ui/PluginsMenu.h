#pragma once

#include <QSet>
#include <QString>
#include <QVariantList>

class LWEnvironment;
class LWPluginsMenuController;
class LWSpec;
class QMenu;
class QWidget;

// The Plugins menu of the menu bar and the status bar's plugins pop-up,
// rebuilt for the current document's language. The Plugins menu starts with
// items for installing bundles and revealing the user folder, the pop-up with
// the latter; then both show the same plugin items: the language's plugins
// (with a separator), the global plugin index, the user's plugins for the
// language, and the unscoped plugins the index does not list, by category.
// Every plugin key works once in the window: a plugin whose key another item
// already has keeps its item but loses the key, with a warning.
class PluginsMenu
{
public:
    PluginsMenu(QMenu *menu, QMenu *statusMenu, QWidget *window, LWEnvironment *environment,
                LWPluginsMenuController *controller);

    void rebuildFor(LWSpec *spec);

private:
    QVariantList globalItems() const;
    void fillPluginItems(LWSpec *spec);
    void dropTakenKeys();
    void shareWithStatusMenu();

    QMenu *menu;
    QMenu *statusMenu;
    QWidget *window;
    LWEnvironment *environment;
    LWPluginsMenuController *controller;
    // Each taken key is reported once, not at every rebuild.
    QSet<QString> warned;
};
