#include "documents/FileManager.h"
#include "documents/LWPathText.h"

#include "documents/DirectoryReader.h"

#include <QRegularExpression>

namespace {

// The compiled name filter of one listing; an empty or invalid pattern hides nothing.
class NameFilter
{
public:
    explicit NameFilter(const QString &pattern)
    {
        if (pattern.isEmpty())
            return;
        expression.setPattern(pattern);
        expression.setPatternOptions(QRegularExpression::CaseInsensitiveOption);
        if (!expression.isValid()) {
            qWarning("FileManager : ignoring invalid name filter \"%s\" : %s",
                     qUtf8Printable(pattern), qUtf8Printable(expression.errorString()));
            return;
        }
        active = true;
    }

    bool hides(const QString &name) const { return active && expression.match(name).hasMatch(); }

private:
    QRegularExpression expression;
    bool active = false;
};

struct ListingRules
{
    bool fullPaths;
    bool backReference;
    bool showHidden;
    QString filter;
    bool foldersFirst;
};

QString entryText(const QString &folder, const QString &name, bool fullPath)
{
    return fullPath ? LWPathText::appendingComponent(folder, name) : name;
}

QStringList listWithRules(const QString &folder, const ListingRules &rules)
{
    QStringList listing;
    if (rules.backReference && folder != QStringLiteral("/") && !folder.isEmpty())
        listing.append(entryText(folder, QStringLiteral(".."), rules.fullPaths));
    const NameFilter filter(rules.filter);
    QStringList others;
    for (const DirectoryEntry &entry : DirectoryReader::read(folder)) {
        if (filter.hides(entry.name) || (!rules.showHidden && FileManager::isFileHidden(entry.name)))
            continue;
        const bool inFront = !rules.foldersFirst || entry.isFolderIn(folder);
        (inFront ? listing : others).append(entryText(folder, entry.name, rules.fullPaths));
    }
    return listing + others;
}

QStringList listMatching(const QString &folder, const FileManager::NamePredicate &predicate,
                         const std::function<QString(const QString &)> &present)
{
    QStringList listing;
    for (const DirectoryEntry &entry : DirectoryReader::read(folder)) {
        if (predicate(entry.name))
            listing.append(present(entry.name));
    }
    return listing;
}

FileManager::NamePredicate endsWithExtension(const QString &extension)
{
    const QString suffix = QLatin1Char('.') + extension;
    return [suffix](const QString &name) { return name.endsWith(suffix); };
}

QVariantList treeEntries(const QString &folder, const QString &relativePath, bool withRootKeys)
{
    QVariantList entries;
    for (const DirectoryEntry &entry : DirectoryReader::read(folder)) {
        const QString fullPath = LWPathText::appendingComponent(folder, entry.name);
        const QString path = LWPathText::appendingComponent(relativePath, entry.name);
        QVariantMap node;
        if (withRootKeys) {
            node.insert(QStringLiteral("name"), entry.name);
        } else {
            node.insert(QStringLiteral("label"), entry.name);
            node.insert(QStringLiteral("fullPath"), fullPath);
            node.insert(QStringLiteral("path"), path);
        }
        if (entry.isDirectoryIn(folder))
            node.insert(QStringLiteral("children"), treeEntries(fullPath, path, withRootKeys));
        entries.append(node);
    }
    return entries;
}

}

namespace FileManager {

QStringList folderContentsWithPath(const QString &folder, bool fullPaths, bool backReference,
                                   bool showHidden, const QString &filter)
{
    return listWithRules(folder, {fullPaths, backReference, showHidden, filter, false});
}

QStringList folderContentsDirectoryTopWithPath(const QString &folder, bool fullPaths,
                                               bool backReference, bool showHidden,
                                               const QString &filter)
{
    return listWithRules(folder, {fullPaths, backReference, showHidden, filter, true});
}

QStringList folderContentsWithPath(const QString &folder, bool fullPaths, bool backReference,
                                   bool showHidden)
{
    return listWithRules(folder, {fullPaths, backReference, showHidden, QString(), false});
}

QStringList folderContents(const QString &folder)
{
    return folderContentsUsingPredicate(folder, [](const QString &) { return true; });
}

QStringList folderContentsUsingPredicate(const QString &folder, const NamePredicate &predicate,
                                         bool addPath)
{
    return listMatching(folder, predicate, [&](const QString &name) {
        return entryText(folder, name, addPath);
    });
}

QStringList folderContentsUsingPredicateWithoutExtension(const QString &folder,
                                                         const NamePredicate &predicate,
                                                         bool addPath)
{
    return listMatching(folder, predicate, [&](const QString &name) {
        return entryText(folder, deletingPathExtension(name), addPath);
    });
}

QStringList folderContentsOfType(const QString &folder, const QString &extension)
{
    return folderContentsUsingPredicate(folder, endsWithExtension(extension), true);
}

QStringList folderContentsWithoutPathOfType(const QString &folder, const QString &extension)
{
    return folderContentsUsingPredicate(folder, endsWithExtension(extension), false);
}

QStringList folderContentsWithoutPathAndExtensionOfType(const QString &folder,
                                                        const QString &extension)
{
    return folderContentsUsingPredicateWithoutExtension(folder, endsWithExtension(extension), false);
}

QVariantMap getFileTree(const QString &folder)
{
    return {{QStringLiteral("name"), lastPathComponent(folder)},
            {QStringLiteral("children"), treeEntries(folder, QString(), true)}};
}

QVariantList getFileTreeWithoutRoot(const QString &folder)
{
    return getFileTreeWithoutRootWithPath(folder, QString());
}

QVariantList getFileTreeWithoutRootWithPath(const QString &folder, const QString &relativePath)
{
    return treeEntries(folder, relativePath, false);
}

}
