#include "editor/TrustedPages.h"

#include "app/LWPaths.h"

#include <QDir>
#include <QFileInfo>

namespace TrustedPages {

namespace {

// The path with links resolved when it exists, else cleaned.
QString resolved(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(QFileInfo(path).absoluteFilePath()) : canonical;
}

bool isInside(const QString &path, const QString &folder)
{
    return path.startsWith(resolved(folder) + QLatin1Char('/'));
}

bool isInsideDataTree(const QString &path, const QString &root)
{
    const QString tree = root + QStringLiteral("/Data");
    return isInside(path, tree) && !isInside(path, tree + QStringLiteral("/Temp"));
}

}

bool isTrustedFile(const QUrl &url)
{
    if (!url.isLocalFile())
        return false;
    const QString path = resolved(url.toLocalFile());
    return isInsideDataTree(path, LWPaths::resourceFolder()) || isInsideDataTree(path, LWPaths::dataRoot());
}

}
