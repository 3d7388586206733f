// The registry's menu descriptions: arrays and dictionaries of item
// dictionaries (see LWMenuItems) from which the user interface builds menus.
#include "extensions/LWEnvironment.h"

#include "app/LWPaths.h"
#include "app/roles/ShellWindow.h"
#include "app/roles/ShellRoles.h"
#include "extensions/LWMenuItems.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWSpec.h"
#include "extensions/LWTheme.h"

#include <QDir>
#include <QFileInfo>

namespace {

QVariantMap pluginItem(LWPlugin *plugin, const QString &selector)
{
    return LWMenuItems::item(plugin->name(), selector, LWMenuItems::objectValue(plugin), plugin->shortcut());
}

QString scopeOf(const LWPlugin *plugin)
{
    return plugin->infoText(QStringLiteral("scope"));
}

bool isUnscoped(const LWPlugin *plugin)
{
    return !plugin->info().contains(QStringLiteral("scope"));
}

// Items for the user's own templates of one specification, after a separator.
QVariantList userTemplateItems(const QString &specName, const QString &selector)
{
    const QDir folder(LWPaths::dataPath(QStringLiteral("User/Templates/") + specName));
    const QStringList entries = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Unsorted);
    if (entries.isEmpty())
        return {};
    QVariantList items{LWMenuItems::separator()};
    for (const QString &entry : entries) {
        const QVariantMap record = LWSpec::templateRecord(folder.filePath(entry));
        items.append(LWMenuItems::item(record.value(QStringLiteral("name")).toString(), selector, record, QString()));
    }
    return items;
}

}

QVariantList LWEnvironment::menuArrayFor(const QString &key, const QString &selector) const
{
    QVariantList items;
    const auto append = [&](LWBundle *bundle) {
        items.append(LWMenuItems::item(bundle->name(), selector, LWMenuItems::objectValue(bundle),
                                       bundle->infoText(QStringLiteral("shortcut"))));
    };
    if (key == QLatin1String("themes")) {
        for (const auto &theme : themeList)
            append(theme.get());
    } else if (key == QLatin1String("specs")) {
        for (const auto &spec : specList) {
            if (!spec->ignore())
                append(spec.get());
        }
    }
    return items;
}

QVariantMap LWEnvironment::pluginsDictionaryWithSelector(const QString &selector) const
{
    QVariantMap categories;
    for (const auto &plugin : pluginList) {
        if (isUnscoped(plugin.get()))
            categories.insert(plugin->infoText(QStringLiteral("category")), QVariantList());
    }
    for (const auto &plugin : pluginList) {
        if (!isUnscoped(plugin.get()))
            continue;
        const QString category = plugin->infoText(QStringLiteral("category"));
        QVariantList items = categories.value(category).toList();
        items.append(pluginItem(plugin.get(), selector));
        categories.insert(category, items);
    }
    return categories;
}

QVariant LWEnvironment::userPluginsArrayForSpec(LWSpec *spec, const QString &selector) const
{
    if (!spec || spec->ignore())
        return {};
    QVariantList children;
    for (const auto &plugin : pluginList) {
        const QString scope = scopeOf(plugin.get());
        if (scope == QLatin1String("global") || scope == spec->name())
            children.append(pluginItem(plugin.get(), selector));
    }
    return QVariantList{LWMenuItems::separator(), LWMenuItems::submenu(QStringLiteral("User"), children)};
}

QVariantMap LWEnvironment::completedPluginEntry(const QVariantMap &entry, const QHash<QString, LWPlugin *> &plugins,
                                                const QString &selector) const
{
    QVariantMap completed = entry;
    LWPlugin *plugin = plugins.value(entry.value(QStringLiteral("title")).toString());
    completed.insert(QStringLiteral("selector"), selector);
    completed.insert(QStringLiteral("object"), LWMenuItems::objectValue(plugin));
    completed.insert(QStringLiteral("equivalent"), plugin ? plugin->shortcut() : QString());
    return completed;
}

QVariant LWEnvironment::pluginsArrayForSpec(LWSpec *spec, const QString &selector)
{
    if (!spec || spec->ignore())
        return {};
    ShellWindow *window = ShellRoles::window();
    if (window)
        window->setRunButtonVisible(false);
    boundRunPlugin = nullptr;
    menuSpec = spec;
    QHash<QString, LWPlugin *> ownPlugins;
    for (LWPlugin *plugin : spec->plugins()) {
        ownPlugins.insert(plugin->name(), plugin);
        if (plugin->shortcut() == QLatin1String("@+R") && plugin->mayRun()) {
            boundRunPlugin = plugin;
            if (window)
                window->setRunButtonVisible(true);
        }
    }
    QVariantList index = spec->pluginsIndex().toList();
    for (QVariant &element : index) {
        QVariantMap entry = element.toMap();
        if (LWMenuItems::isSubmenu(entry)) {
            QVariantList children = entry.value(QStringLiteral("children")).toList();
            for (QVariant &child : children) {
                if (!LWMenuItems::isSeparator(child.toMap()))
                    child = completedPluginEntry(child.toMap(), ownPlugins, selector);
            }
            entry.insert(QStringLiteral("children"), children);
            element = entry;
        } else if (!LWMenuItems::isSeparator(entry)) {
            element = completedPluginEntry(entry, ownPlugins, selector);
        }
    }
    return index;
}

QVariantList LWEnvironment::globalPluginsToMenuFromIndex(const QVariantList &index, const QString &selector) const
{
    QVariantList menu;
    for (const QVariant &element : index) {
        const QVariantMap entry = element.toMap();
        if (LWMenuItems::isSeparator(entry))
            menu.append(entry);
        else if (LWMenuItems::isSubmenu(entry))
            menu.append(LWMenuItems::submenu(entry.value(QStringLiteral("title")).toString(),
                                             globalPluginsToMenuFromIndex(entry.value(QStringLiteral("children")).toList(), selector)));
        else if (LWPlugin *plugin = pluginByName(entry.value(QStringLiteral("title")).toString()))
            menu.append(pluginItem(plugin, selector));
        else
            menu.append(LWMenuItems::item(entry.value(QStringLiteral("title")).toString(), selector, QVariant(), QString()));
    }
    return menu;
}

QVariantMap LWEnvironment::templatesDictionaryWithSelector(const QString &selector) const
{
    QVariantMap templates;
    for (const auto &spec : specList)
        templates.insert(spec->name(), QVariantList());
    for (const auto &spec : specList) {
        // User templates are offered only for specifications that ship templates.
        if (spec->templates().isEmpty()) {
            templates.remove(spec->name());
            continue;
        }
        QVariantList items;
        for (const QVariant &record : spec->templates())
            items.append(LWMenuItems::item(record.toMap().value(QStringLiteral("name")).toString(), selector, record, QString()));
        items.append(userTemplateItems(spec->name(), selector));
        templates.insert(spec->name(), items);
    }
    return templates;
}
