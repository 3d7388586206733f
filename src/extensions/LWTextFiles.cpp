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

namespace {

bool alreadyHolds(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.size() == bytes.size() && file.open(QIODevice::ReadOnly) && file.readAll() == bytes;
}

}

// Generated editor files are mostly written again with what they already
// hold (the shipped copies of modes and themes): such a file is left alone,
// which spares a write and a sync to disk per file at start-up.
bool writeAtomically(const QString &path, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    if (alreadyHolds(path, bytes))
        return true;
    QDir().mkpath(QFileInfo(path).absolutePath());
    return LWSafeSave::write(path, bytes);
}

bool isSafeFileName(const QString &name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\'))
        && name != QLatin1String(".") && name != QLatin1String("..");
}

}
