#include "extensions/LWEnvironment.h"

#include "app/LWPaths.h"
#include "app/roles/ShellWindow.h"
#include "app/roles/ShellRoles.h"
#include "documents/FileManager.h"
#include "extensions/LWDataRoot.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWSpec.h"
#include "extensions/LWTheme.h"
#include "terminal/LWTerminal.h"

#include <QDir>
#include <QFileInfo>
#include <QtDebug>

namespace {

LWEnvironment *sharedEnvironment = nullptr;

template <typename Bundle, typename Factory>
void appendBundles(std::vector<std::unique_ptr<Bundle>> &list, const QString &relativeFolder,
                   const QString &type, Factory make)
{
    for (const QString &path : FileManager::folderContentsOfType(LWPaths::dataPath(relativeFolder), type))
        list.emplace_back(make(path));
}

template <typename Bundle>
QList<Bundle *> rawList(const std::vector<std::unique_ptr<Bundle>> &list)
{
    QList<Bundle *> result;
    result.reserve(int(list.size()));
    for (const auto &bundle : list)
        result.append(bundle.get());
    return result;
}

// Copies a bundle folder into a user folder under its own name; an existing
// folder of that name is left alone.
void copyIntoUserFolder(const QString &path, const QString &relativeFolder)
{
    const QString folder = LWPaths::dataPath(relativeFolder);
    const QString destination = folder + QLatin1Char('/') + QFileInfo(path).fileName();
    FileManager::createAsFolder(folder);
    if (QFileInfo::exists(destination))
        qWarning("LWEnvironment : addUser :: ERROR : %s exists", qUtf8Printable(destination));
    else
        FileManager::copyTo(path, destination);
}

}

LWEnvironment::LWEnvironment() = default;
LWEnvironment::~LWEnvironment() = default;

LWEnvironment *LWEnvironment::shared()
{
    return sharedEnvironment;
}

void LWEnvironment::setShared(LWEnvironment *environment)
{
    sharedEnvironment = environment;
}

void LWEnvironment::load()
{
    setEnvPath(LWTerminal::getPath());
    setPwd(QString());
    updated = LWDataRoot::prepare();
    loadBundles();
    buildLookupMaps();
    if (updated)
        installAll();
}

void LWEnvironment::loadBundles()
{
    const QString theme = QStringLiteral("lwTheme");
    const QString spec = QStringLiteral("lwSpec");
    const QString plugin = QStringLiteral("lwPlugin");
    appendBundles(themeList, QStringLiteral("Data/Themes"), theme, &LWTheme::themeFromPath);
    appendBundles(themeList, QStringLiteral("User/Themes"), theme, &LWTheme::themeFromPath);
    // User specifications live in the user themes folder.
    appendBundles(specList, QStringLiteral("Data/Specs"), spec, &LWSpec::specFromPath);
    appendBundles(specList, QStringLiteral("User/Themes"), spec, &LWSpec::specFromPath);
    appendBundles(pluginList, QStringLiteral("Data/Plugins"), plugin, &LWPlugin::pluginFromPath);
    appendBundles(pluginList, QStringLiteral("User/Plugins"), plugin, &LWPlugin::pluginFromPath);
}

void LWEnvironment::buildLookupMaps()
{
    // Later bundles replace earlier ones of the same name or extension, so
    // user bundles shadow shipped ones.
    for (const auto &theme : themeList)
        themesByName.insert(theme->name(), theme.get());
    for (const auto &spec : specList) {
        for (const QString &extension : spec->fileExtensions())
            specsByExtension.insert(extension, spec.get());
        specsByName.insert(spec->name(), spec.get());
    }
}

void LWEnvironment::installAll()
{
    for (const auto &theme : themeList)
        theme->install();
    for (const auto &spec : specList)
        spec->install();
    for (const auto &plugin : pluginList)
        plugin->install();
}

QList<LWTheme *> LWEnvironment::themes() const
{
    return rawList(themeList);
}

QList<LWSpec *> LWEnvironment::specs() const
{
    return rawList(specList);
}

QList<LWPlugin *> LWEnvironment::plugins() const
{
    return rawList(pluginList);
}

LWPlugin *LWEnvironment::pluginByName(const QString &name) const
{
    for (const auto &plugin : pluginList) {
        if (plugin->name() == name)
            return plugin.get();
    }
    return nullptr;
}

QString LWEnvironment::extensionKey(const QString &fileName)
{
    if (fileName.endsWith(QLatin1String(".coffee.md")))
        return QStringLiteral("coffee.md");
    return QFileInfo(fileName).suffix();
}

LWSpec *LWEnvironment::specForFileName(const QString &fileName, const QVariantMap &userExtensions) const
{
    const QString key = extensionKey(fileName);
    if (LWSpec *chosen = specsByName.value(userExtensions.value(key).toString()))
        return chosen;
    if (LWSpec *byExtension = specsByExtension.value(key))
        return byExtension;
    return specsByExtension.value(QFileInfo(fileName).fileName());
}

void LWEnvironment::addUserPluginFromPath(const QString &path)
{
    copyIntoUserFolder(path, QStringLiteral("User/Plugins"));
    pluginList.emplace_back(LWPlugin::pluginFromPath(path));
    if (ShellWindow *window = ShellRoles::window())
        window->updatePluginMenusForSpec(menuSpec);
}

void LWEnvironment::addUserThemeFromPath(const QString &path)
{
    copyIntoUserFolder(path, QStringLiteral("User/Themes"));
    themeList.emplace_back(LWTheme::themeFromPath(path));
    themeList.back()->install();
    if (ShellWindow *window = ShellRoles::window())
        window->updateThemesMenu();
}

QString LWEnvironment::envPath() const
{
    QMutexLocker locker(&lock);
    return envPathValue;
}

void LWEnvironment::setEnvPath(const QString &path)
{
    QMutexLocker locker(&lock);
    envPathValue = path;
}

QString LWEnvironment::pwd() const
{
    QMutexLocker locker(&lock);
    return pwdValue;
}

void LWEnvironment::setPwd(const QString &folder)
{
    QMutexLocker locker(&lock);
    pwdValue = folder;
}
