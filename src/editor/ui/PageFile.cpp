#include "editor/ui/PageFile.h"

#include "app/LWPaths.h"

#include <QFile>

namespace PageFile {

QString text(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

QString utilityPagePath()
{
    return LWPaths::dataPath(QStringLiteral("Data/Html/uindex.html"));
}

}
