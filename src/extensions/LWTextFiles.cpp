#include "extensions/LWTextFiles.h"

#include "documents/LWSafeSave.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace LWTextFiles {

std::optional<QString> readUtf8(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(file.readAll());
}

bool writeAtomically(const QString &path, const QString &text)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    return LWSafeSave::write(path, text.toUtf8());
}

bool isSafeFileName(const QString &name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\'))
        && name != QLatin1String(".") && name != QLatin1String("..");
}

}
