#include "extensions/LWTextFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit())
        return true;
    qWarning("LWTextFiles : writeAtomically :: ERROR : %s : %s",
             qUtf8Printable(path), qUtf8Printable(file.errorString()));
    return false;
}

bool isSafeFileName(const QString &name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\'))
        && name != QLatin1String(".") && name != QLatin1String("..");
}

}
