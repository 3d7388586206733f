#include "terminal/TerminalStartFolder.h"

#include "documents/LWDocumentManager.h"

#include <QDir>
#include <QFileInfo>

namespace TerminalStartFolder {

namespace {

QString existingFolder(const QString &path)
{
    return !path.isEmpty() && QFileInfo(path).isDir() ? path : QString();
}

QString currentDocumentFolder(const LWDocumentManager &documents)
{
    const LWDocument::Ptr current = documents.currentDocument();
    if (!current || current->isUntitled())
        return QString();
    return existingFolder(QFileInfo(current->fullPath()).absolutePath());
}

QString firstWorkspaceFolder(const LWDocumentManager &documents)
{
    for (const LWDocument::Ptr &group : documents.documentTree().groups()) {
        const QString folder = existingFolder(group->fullPath());
        if (!folder.isEmpty())
            return folder;
    }
    return QString();
}

}

QString forWorkspace(const LWDocumentManager *documents)
{
    QString folder;
    if (documents) {
        folder = currentDocumentFolder(*documents);
        if (folder.isEmpty())
            folder = firstWorkspaceFolder(*documents);
    }
    return folder.isEmpty() ? QDir::homePath() : folder;
}

}
