#include "search/WorkspaceFiles.h"

#include "documents/LWDocumentFilterCache.h"
#include "documents/LWDocumentTree.h"

#include <QStringList>

namespace WorkspaceFiles {

namespace {

bool isVersionControlFolder(const LWDocument &node)
{
    static const QStringList names = {QStringLiteral(".git"), QStringLiteral(".svn"), QStringLiteral(".hg")};
    return node.isFolder() && names.contains(node.label());
}

void addFiles(const LWDocument::Ptr &node, const QString &root, List &files)
{
    for (const LWDocument::Ptr &child : node->children()) {
        if (child->isFile() && !child->isUntitled())
            files.push_back({child->fullPath(), root, child});
        else if (child->isExpandable() && !isVersionControlFolder(*child))
            addFiles(child, root, files);
    }
}

}

List collect(const LWDocumentTree &tree)
{
    List files;
    const LWDocument::List &groups = tree.groups();
    for (size_t index = 0; index < groups.size(); ++index)
        addFiles(groups[index], index == 0 ? QString() : groups[index]->fullPath(), files);
    return files;
}

QString displayPath(const File &file)
{
    if (file.root.isEmpty() || !file.fullPath.startsWith(file.root + QLatin1Char('/')))
        return file.fullPath;
    const int folderNameStart = file.root.lastIndexOf(QLatin1Char('/')) + 1;
    return file.fullPath.mid(folderNameStart);
}

std::vector<FuzzyMatcher::Candidate> candidates(const List &files)
{
    std::vector<FuzzyMatcher::Candidate> result;
    result.reserve(files.size());
    for (const File &file : files) {
        const QString shown = displayPath(file);
        result.push_back(FuzzyMatcher::Candidate::of(shown, shown.lastIndexOf(QLatin1Char('/')) + 1));
    }
    return result;
}

QString stampOf(const LWDocumentTree &tree)
{
    QString stamp = QString::number(LWDocumentFilterCache::currentGeneration());
    for (const LWDocument::Ptr &group : tree.groups())
        stamp += QLatin1Char(' ') + group->identity();
    return stamp;
}

}
