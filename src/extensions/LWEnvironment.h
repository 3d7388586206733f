#pragma once

#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

class LWPlugin;
class LWSpec;
class LWTheme;

// The extension registry: prepares the data root, loads every theme,
// language specification and plugin bundle (shipped first, then the user's),
// answers lookups by name and file name, and describes the Themes, Language,
// Plugins and Templates menus as data (arrays of item dictionaries with the
// keys "title", "selector", "object", "equivalent" and "children").
class LWEnvironment
{
public:
    LWEnvironment();
    ~LWEnvironment();
    LWEnvironment(const LWEnvironment &) = delete;
    LWEnvironment &operator=(const LWEnvironment &) = delete;

    // The registry in use (the application creates one at start); nullptr
    // before that.
    static LWEnvironment *shared();
    static void setShared(LWEnvironment *environment);

    // Start-up: sets up the data root (user folders, version check, fresh
    // "Data" copy), loads all bundles, builds the lookup maps and, after a
    // fresh copy, installs every bundle. Call once.
    void load();

    // Whether load() copied a fresh "Data" tree and installed the bundles.
    bool wasUpdated() const { return updated; }

    // --- Bundles and lookups
    QList<LWTheme *> themes() const;
    QList<LWSpec *> specs() const;
    QList<LWPlugin *> plugins() const;
    QHash<QString, LWTheme *> themeNames() const { return themesByName; }
    QHash<QString, LWSpec *> specNames() const { return specsByName; }
    QHash<QString, LWSpec *> extensions() const { return specsByExtension; }
    LWPlugin *pluginByName(const QString &name) const;

    // The language specification for a file name: the user's override map (extension
    // to specification name, the "LW_User_Extensions" default) first, then the
    // extension key, then the whole file name; nullptr when none matches (the
    // document then keeps its specification).
    LWSpec *specForFileName(const QString &fileName, const QVariantMap &userExtensions = {}) const;

    // The extension key of a file name: its last extension, except "coffee.md"
    // for names ending in ".coffee.md".
    static QString extensionKey(const QString &fileName);

    // The plugin bound to the run button for the current specification.
    LWPlugin *runPlugin() const { return boundRunPlugin; }
    void setRunPlugin(LWPlugin *plugin) { boundRunPlugin = plugin; }

    // --- Menu descriptions (selector: the action's name, e.g. "executePluginAction:")
    // One item per theme ("themes") or listed specification ("specs").
    QVariantList menuArrayFor(const QString &key, const QString &selector) const;
    // The language specification's own plugin menu from its plugin index; binds runPlugin
    // and shows or hides the run button. Invalid for an ignored specification.
    QVariant pluginsArrayForSpec(LWSpec *spec, const QString &selector);
    // A separator and a "User" submenu of the plugins scoped "global" or to the
    // specification. Invalid for an ignored specification.
    QVariant userPluginsArrayForSpec(LWSpec *spec, const QString &selector) const;
    // Category to items of the plugins without "scope".
    QVariantMap pluginsDictionaryWithSelector(const QString &selector) const;
    // The global plugin menu laid out by an index ("Data/Plugins/index.json").
    QVariantList globalPluginsToMenuFromIndex(const QVariantList &index, const QString &selector) const;
    // Specification name to template items (user templates after a separator).
    QVariantMap templatesDictionaryWithSelector(const QString &selector) const;

    // --- Bundles the user adds
    // Copies the plugin folder into "User/Plugins", lists it and rebuilds the
    // plugin menus for the language specification they were last built for.
    void addUserPluginFromPath(const QString &path);
    // Copies the theme folder into "User/Themes", lists and installs it and
    // rebuilds the Themes menu (the name map keeps its state until next start).
    void addUserThemeFromPath(const QString &path);

    // --- Values shared with child processes
    // The login PATH handed to child processes.
    QString envPath() const;
    void setEnvPath(const QString &path);

    // The terminal's working folder; "" until a shell run reports one. Written
    // from process reader threads, hence the lock.
    QString pwd() const;
    void setPwd(const QString &folder);

private:
    void loadBundles();
    void buildLookupMaps();
    void installAll();
    QVariantMap completedPluginEntry(const QVariantMap &entry, const QHash<QString, LWPlugin *> &plugins,
                                     const QString &selector) const;

    std::vector<std::unique_ptr<LWTheme>> themeList;
    std::vector<std::unique_ptr<LWSpec>> specList;
    std::vector<std::unique_ptr<LWPlugin>> pluginList;
    QHash<QString, LWTheme *> themesByName;
    QHash<QString, LWSpec *> specsByName;
    QHash<QString, LWSpec *> specsByExtension;
    LWPlugin *boundRunPlugin = nullptr;
    LWSpec *menuSpec = nullptr; // the language specification the plugin menus were last built for
    bool updated = false;

    mutable QMutex lock;
    QString envPathValue;
    QString pwdValue;
};
