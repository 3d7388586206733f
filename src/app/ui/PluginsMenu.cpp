#include "app/ui/PluginsMenu.h"

#include "app/LWPaths.h"
#include "extensions/JSONComments.h"
#include "extensions/LWEnvironment.h"
#include "extensions/ui/LWMenuOperations.h"
#include "extensions/ui/LWPluginsMenuController.h"

#include <QMenu>

namespace {

const QString selector = QStringLiteral("executePluginAction:");
constexpr int fixedItems = 2;

}

PluginsMenu::PluginsMenu(QMenu *menu, LWEnvironment *environment, LWPluginsMenuController *controller)
    : menu(menu), environment(environment), controller(controller)
{
    LWMenuOperations::addItemWithTitle(menu, QStringLiteral("Install Plugin..."),
                                       QStringLiteral("installNewPluginAction:"), QString(), controller);
    LWMenuOperations::addItemWithTitle(menu, QStringLiteral("Install Theme..."),
                                       QStringLiteral("installNewThemeAction:"), QString(), controller);
    controller->validateWhenShown(menu);
}

void PluginsMenu::rebuildFor(LWSpec *spec)
{
    const QVariantList specPlugins = environment->pluginsArrayForSpec(spec, selector).toList();
    const QVariantList userPlugins = environment->userPluginsArrayForSpec(spec, selector).toList();
    const QVariant index = JSONComments::JSONObjectWithCommentedContentsOfFile(
        LWPaths::dataPath(QStringLiteral("Data/Plugins/index.json")));
    LWMenuOperations::removeAllItemsExceptForFirst(menu, fixedItems);
    LWMenuOperations::addSeparator(menu);
    if (!specPlugins.isEmpty()) {
        LWMenuOperations::addItemsFromNestedArray(menu, specPlugins, controller);
        LWMenuOperations::addSeparator(menu);
    }
    LWMenuOperations::addItemsFromNestedArray(
        menu, environment->globalPluginsToMenuFromIndex(index.toList(), selector), controller);
    LWMenuOperations::addItemsFromNestedArray(menu, userPlugins, controller);
    LWMenuOperations::addObjectItemsFromDictionary(menu, environment->pluginsDictionaryWithSelector(selector),
                                                   controller);
}
