#include "app/ui/PluginsMenu.h"

#include "app/LWPaths.h"
#include "extensions/JSONComments.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWMenuItems.h"
#include "extensions/ui/LWMenuOperations.h"
#include "extensions/ui/LWPluginsMenuController.h"
#include "extensions/ui/MenuValidation.h"

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QSet>
#include <QtDebug>

namespace {

const QString selector = QStringLiteral("executePluginAction:");
const QString revealTitle = QStringLiteral("Show User Folder");
const QString revealSelector = QStringLiteral("openFolderInFinder:");
constexpr int fixedItems = 3;
constexpr int statusFixedItems = 1;

// The plugins that menu item descriptions place, at any depth.
void collectPlaced(const QVariantList &items, QSet<QObject *> &placed)
{
    for (const QVariant &item : items) {
        const QVariantMap entry = item.toMap();
        if (LWMenuItems::isSubmenu(entry))
            collectPlaced(entry.value(QStringLiteral("children")).toList(), placed);
        else if (QObject *plugin = entry.value(QStringLiteral("object")).value<QObject *>())
            placed.insert(plugin);
    }
}

// The category dictionary without the plugins already placed; empty categories go.
QVariantMap withoutPlaced(const QVariantMap &categories, const QSet<QObject *> &placed)
{
    QVariantMap remaining;
    for (auto category = categories.cbegin(); category != categories.cend(); ++category) {
        QVariantList items;
        for (const QVariant &item : category.value().toList()) {
            if (!placed.contains(item.toMap().value(QStringLiteral("object")).value<QObject *>()))
                items.append(item);
        }
        if (!items.isEmpty())
            remaining.insert(category.key(), items);
    }
    return remaining;
}

// The items of the menu from index `first` on, and of their submenus.
void collectItems(QMenu *menu, int first, QList<QAction *> &items)
{
    const QList<QAction *> actions = menu->actions();
    for (int i = first; i < actions.size(); ++i) {
        QAction *action = actions.at(i);
        if (action->menu())
            collectItems(action->menu(), 0, items);
        else if (!action->isSeparator())
            items.append(action);
    }
}

}

PluginsMenu::PluginsMenu(QMenu *menu, QMenu *statusMenu, QWidget *window, LWEnvironment *environment,
                         LWPluginsMenuController *controller)
    : menu(menu), statusMenu(statusMenu), window(window), environment(environment), controller(controller)
{
    LWMenuOperations::addItemWithTitle(menu, QStringLiteral("Install Plugin..."),
                                       QStringLiteral("installNewPluginAction:"), QString(), controller);
    LWMenuOperations::addItemWithTitle(menu, QStringLiteral("Install Theme..."),
                                       QStringLiteral("installNewThemeAction:"), QString(), controller);
    LWMenuOperations::addItemWithTitle(menu, revealTitle, revealSelector, QString(), controller);
    LWMenuOperations::addItemWithTitle(statusMenu, revealTitle, revealSelector, QString(), controller);
    for (QMenu *validated : {menu, statusMenu})
        MenuValidation::install(validated, [controller](QAction *item) { return controller->validateMenuItem(item); });
}

void PluginsMenu::rebuildFor(LWSpec *spec)
{
    LWMenuOperations::removeAllItemsExceptForFirst(statusMenu, statusFixedItems);
    LWMenuOperations::removeAllItemsExceptForFirst(menu, fixedItems);
    fillPluginItems(spec);
    dropTakenKeys();
    shareWithStatusMenu();
}

// The global plugin index, then the unscoped plugins it does not list (a
// user's own plugin, say) by category.
QVariantList PluginsMenu::globalItems() const
{
    const QVariant index = JSONComments::JSONObjectWithCommentedContentsOfFile(
        LWPaths::dataPath(QStringLiteral("Data/Plugins/index.json")));
    QVariantList items = environment->globalPluginsToMenuFromIndex(index.toList(), selector);
    QSet<QObject *> placed;
    collectPlaced(items, placed);
    const QVariantMap unlisted = withoutPlaced(environment->pluginsDictionaryWithSelector(selector), placed);
    for (auto category = unlisted.cbegin(); category != unlisted.cend(); ++category)
        items.append(LWMenuItems::submenu(category.key(), category.value().toList()));
    return items;
}

void PluginsMenu::fillPluginItems(LWSpec *spec)
{
    const QVariantList specPlugins = environment->pluginsArrayForSpec(spec, selector).toList();
    const QVariantList userPlugins = environment->userPluginsArrayForSpec(spec, selector).toList();
    LWMenuOperations::addSeparator(menu);
    if (!specPlugins.isEmpty()) {
        LWMenuOperations::addItemsFromNestedArray(menu, specPlugins, controller);
        LWMenuOperations::addSeparator(menu);
    }
    LWMenuOperations::addItemsFromNestedArray(menu, globalItems(), controller);
    LWMenuOperations::addItemsFromNestedArray(menu, userPlugins, controller);
}

void PluginsMenu::dropTakenKeys()
{
    QList<QAction *> pluginItems;
    collectItems(menu, fixedItems, pluginItems);
    const QSet<QAction *> own(pluginItems.cbegin(), pluginItems.cend());
    QHash<QKeySequence, QString> taken;
    for (QAction *action : window->findChildren<QAction *>()) {
        if (!own.contains(action) && !action->shortcut().isEmpty())
            taken.insert(action->shortcut(), action->text());
    }
    for (QAction *item : pluginItems) {
        const QKeySequence key = item->shortcut();
        if (key.isEmpty())
            continue;
        if (!taken.contains(key)) {
            taken.insert(key, item->text());
            continue;
        }
        const QString warning = QStringLiteral("Plugin \"%1\" keeps no key: %2 already belongs to \"%3\"")
                                    .arg(item->text(), key.toString(), taken.value(key));
        if (!warned.contains(warning))
            qWarning().noquote() << warning;
        warned.insert(warning);
        item->setShortcut({});
    }
}

void PluginsMenu::shareWithStatusMenu()
{
    statusMenu->addActions(menu->actions().mid(fixedItems));
}
