#include "documents/LWFolderLoader.h"

#include "app/LWDefaults.h"
#include "documents/DirectoryReader.h"
#include "documents/LWDocumentIcons.h"
#include "documents/LWPathText.h"
#include "extensions/LWSpec.h"

#include <QFile>
#include <QtDebug>

#include <algorithm>
#include <sys/stat.h>

LWImportSettings LWImportSettings::fromDefaults()
{
    const LWDefaults *defaults = LWDefaults::shared();
    LWImportSettings settings;
    if (defaults->boolForKey(QStringLiteral("LW_WSDoFilter")))
        settings.filter = defaults->stringForKey(QStringLiteral("LW_WSDoFilterRegex"));
    settings.foldersOnTop = defaults->boolForKey(QStringLiteral("LW_WSFoldersOnTop"));
    settings.defaultSpec = defaults->stringForKey(QStringLiteral("LW_DefaultSpecForNew"));
    settings.userExtensions = defaults->dictionaryForKey(QStringLiteral("LW_User_Extensions"));
    return settings;
}

LWFolderLoader::LWFolderLoader(const QString &root, const LWImportSettings &settings)
    : root(root)
    , settings(settings)
    , chooser(settings.userExtensions)
{
    if (settings.filter.isEmpty())
        return;
    filter = QRegularExpression(settings.filter, QRegularExpression::CaseInsensitiveOption);
    if (!filter.isValid()) {
        qWarning().noquote() << QStringLiteral("Workspace filter \"%1\" is not a valid expression (%2); "
                                               "listing every entry")
                                    .arg(settings.filter, filter.errorString());
        filter = QRegularExpression();
    }
}

LWDocument::Ptr LWFolderLoader::fileNode(const QString &path) const
{
    const QString relative = root.isEmpty() ? QString(QLatin1String("")) : LWPathText::relativeDirectory(path, root);
    return fileNode(path, LWPathText::lastComponent(path), relative);
}

LWDocument::Ptr LWFolderLoader::folderNode(const QString &path)
{
    const QString relative = root.isEmpty() ? QString(QLatin1String("")) : LWPathText::relativeDirectory(path, root);
    return folderNode(path, LWPathText::lastComponent(path), relative);
}

LWDocument::Ptr LWFolderLoader::groupNode(const QString &path)
{
    LWDocument::Ptr group = newNode(LWDocument::Group, LWPathText::lastComponent(path).toUpper(), path,
                                    QLatin1String(""));
    loadChildren(*group, path);
    return group;
}

LWDocument::Ptr LWFolderLoader::newNode(LWDocument::Kind kind, const QString &label, const QString &fullPath,
                                        const QString &relativeDirectory) const
{
    LWDocument::Ptr node = LWDocument::createBare();
    node->setSpecName(settings.defaultSpec);
    node->setType(kind);
    node->setLabel(label);
    node->setPath(relativeDirectory);
    node->setFullPath(fullPath);
    return node;
}

LWDocument::Ptr LWFolderLoader::fileNode(const QString &fullPath, const QString &name,
                                         const QString &relativeDirectory) const
{
    LWDocument::Ptr file = newNode(LWDocument::File, name, fullPath, relativeDirectory);
    file->updateIcon(LWDocumentIcons::regularFile());
    if (const LWSpec *spec = chooser.specForPath(name))
        file->setSpecName(spec->name());
    return file;
}

LWDocument::Ptr LWFolderLoader::folderNode(const QString &fullPath, const QString &name,
                                           const QString &relativeDirectory)
{
    LWDocument::Ptr folder = newNode(LWDocument::Folder, name, fullPath, relativeDirectory);
    folder->updateIcon(LWDocumentIcons::folder());
    loadChildren(*folder, fullPath);
    return folder;
}

bool LWFolderLoader::isFiltered(const QString &name) const
{
    return !filter.pattern().isEmpty() && filter.match(name).hasMatch();
}

void LWFolderLoader::loadChildren(LWDocument &folder, const QString &folderPath)
{
    struct stat info;
    if (::stat(QFile::encodeName(folderPath).constData(), &info) != 0)
        return;
    const FolderIdentity identity{info.st_dev, info.st_ino};
    if (std::find(openFolders.cbegin(), openFolders.cend(), identity) != openFolders.cend()) {
        qInfo().noquote() << QStringLiteral("Not descending into %1: it leads back to a folder above it")
                                 .arg(folderPath);
        return;
    }
    openFolders.push_back(identity);

    const std::vector<LWFolderEntry> entries = listing(folderPath);
    // Every child shares one relative-directory text; any child name gives
    // the same directory.
    const QString childDirectory = LWPathText::relativeDirectory(
        LWPathText::appendingComponent(folderPath, QStringLiteral("child")), root);
    LWDocument::List children;
    children.reserve(entries.size());
    for (const LWFolderEntry &entry : entries)
        children.push_back(childNode(folderPath, entry, childDirectory));
    folder.adoptLoadedChildren(std::move(children));
    openFolders.pop_back();
}

std::vector<LWFolderEntry> LWFolderLoader::listing(const QString &folderPath) const
{
    std::vector<LWFolderEntry> folders;
    std::vector<LWFolderEntry> others;
    const QVector<DirectoryEntry> entries = DirectoryReader::read(folderPath);
    for (const DirectoryEntry &entry : entries) {
        if (isFiltered(entry.name))
            continue;
        const bool isFolder = entry.isFolderIn(folderPath);
        (isFolder && settings.foldersOnTop ? folders : others).push_back({entry.name, isFolder});
    }
    folders.insert(folders.end(), others.begin(), others.end());
    return folders;
}

LWDocument::Ptr LWFolderLoader::childNode(const QString &folderPath, const LWFolderEntry &entry)
{
    const QString childPath = LWPathText::appendingComponent(folderPath, entry.name);
    return childNode(folderPath, entry, LWPathText::relativeDirectory(childPath, root));
}

LWDocument::Ptr LWFolderLoader::childNode(const QString &folderPath, const LWFolderEntry &entry,
                                          const QString &relativeDirectory)
{
    const QString childPath = LWPathText::appendingComponent(folderPath, entry.name);
    return entry.isFolder ? folderNode(childPath, entry.name, relativeDirectory)
                          : fileNode(childPath, entry.name, relativeDirectory);
}
