#include "extensions/LWSpec.h"

#include "app/LWPaths.h"
#include "documents/FileManager.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWTextFiles.h"

#include <QDir>
#include <QFileInfo>

LWSpec *LWSpec::specFromPath(const QString &path)
{
    return new LWSpec(path);
}

LWSpec::LWSpec(const QString &path)
    : LWBundle(path), ignored(!QFileInfo::exists(path + QStringLiteral("/info.json")))
{
    loadTemplates();
    loadPlugins();
}

LWSpec::~LWSpec() = default;

QList<LWPlugin *> LWSpec::plugins() const
{
    QList<LWPlugin *> list;
    for (const auto &plugin : ownPlugins)
        list.append(plugin.get());
    return list;
}

QStringList LWSpec::fileExtensions() const
{
    return info().value(QStringLiteral("extensions")).toStringList();
}

QVariantMap LWSpec::templateRecord(const QString &path)
{
    const QFileInfo file(path);
    return {{QStringLiteral("name"), file.completeBaseName()},
            {QStringLiteral("filename"), file.fileName()},
            {QStringLiteral("source"), LWTextFiles::readUtf8(path).value_or(QString())}};
}

void LWSpec::loadTemplates()
{
    const QString folder = path() + QStringLiteral("/templates");
    if (!QFileInfo(folder).isDir())
        return;
    const QStringList entries = QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Unsorted);
    for (const QString &entry : entries)
        templateRecords.append(templateRecord(folder + QLatin1Char('/') + entry));
}

void LWSpec::loadPlugins()
{
    const QString folder = path() + QStringLiteral("/plugins");
    if (!QFileInfo(folder).isDir())
        return;
    for (const QString &pluginPath : FileManager::folderContentsOfType(folder, QStringLiteral("lwPlugin")))
        ownPlugins.emplace_back(LWPlugin::pluginFromPath(pluginPath));
    const QString indexPath = folder + QStringLiteral("/index.json");
    if (QFileInfo::exists(indexPath))
        index = readJSONFile(indexPath);
}

void LWSpec::install()
{
    if (ignored)
        return;
    const QString modeName = infoText(QStringLiteral("name"));
    if (!LWTextFiles::isSafeFileName(modeName)) {
        qWarning("LWSpec : install :: no usable mode name in %s", qUtf8Printable(path()));
        return;
    }
    const QString editorTree = LWPaths::dataPath(QStringLiteral("Data/Html/ace/"));
    const struct { const char *source; QString target; } scripts[] = {
        {"mode.js", QStringLiteral("mode-%1.js").arg(modeName)},
        {"snippets.js", QStringLiteral("snippets/%1.js").arg(modeName)},
        {"worker.js", QStringLiteral("worker-%1.js").arg(modeName)},
    };
    for (const auto &script : scripts) {
        const auto text = LWTextFiles::readUtf8(path() + QLatin1Char('/') + QLatin1String(script.source));
        if (text)
            LWTextFiles::writeAtomically(editorTree + script.target, *text);
    }
}
