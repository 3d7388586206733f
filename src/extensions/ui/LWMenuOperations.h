#pragma once

#include <QKeySequence>
#include <QStringList>
#include <QVariant>

class QAction;
class QMenu;
class QObject;

// Builds real menus from the registry's menu description dictionaries. An
// item's action is the name of a slot of the target, given as text ending in
// ":" ("executePluginAction:"); triggering the item calls the target's slot of
// that name with the QAction (or without arguments when the slot takes
// none), looked up through the meta-object system.
namespace LWMenuOperations {

// The encoded key equivalent ("$@+S", "F5") as a key sequence: "@" is
// Control, "^" Meta, "~" Alt, "$" Shift.
QKeySequence keySequenceForShortcut(const QString &shortcut);

void addSeparator(QMenu *menu);
QAction *addItemWithTitle(QMenu *menu, const QString &title, const QString &selector,
                          const QString &keyEquivalent, QObject *target,
                          const QVariant &representedObject = {});
void addItemsWithTitles(QMenu *menu, const QStringList &titles, const QStringList &selectors,
                        const QStringList &keyEquivalents, QObject *target);
// Item dictionaries: "--" titles give separators, others an item.
void addItemsFromArray(QMenu *menu, const QVariantList &items, QObject *target);
// The same, with each item's "object" as the action's data.
void addObjectItemsFromArray(QMenu *menu, const QVariantList &items, QObject *target);
// Title to item dictionaries: one submenu per key.
void addItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target);
void addObjectItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target);
void addRepresentedItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target);
// The general form for plugin menus: "children" give submenus, "--"
// separators, other entries items with their "object".
void addItemsFromNestedArray(QMenu *menu, const QVariantList &items, QObject *target);

void setItemsWithTitles(QMenu *menu, const QStringList &titles, const QStringList &selectors,
                        const QStringList &keyEquivalents, QObject *target);
void setItemsFromArray(QMenu *menu, const QVariantList &items, QObject *target);
void setItemsFromDictionary(QMenu *menu, const QVariantMap &dictionary, QObject *target);

// Removes items from the end while more than count remain.
void removeAllItemsExceptForFirst(QMenu *menu, int count);

// The item at a "/"-separated title path: the first part in this menu, the
// remaining parts joined without separator looked up in its submenu.
QAction *itemWithPath(QMenu *menu, const QString &path);

}
