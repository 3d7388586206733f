#include "documents/LWSafeSave.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QtDebug>

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace LWSafeSave {

namespace {

bool failed(const QString &path, const QString &why, QString *reason)
{
    qWarning().noquote() << QStringLiteral("Could not save %1: %2").arg(path, why);
    if (reason)
        *reason = why;
    return false;
}

// A short write is retried for the rest, so that a real failure shows with
// its error (a write cut short by a full disk reports no error by itself).
bool writeAll(QSaveFile &file, const QByteArray &bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 step = file.write(bytes.constData() + written, bytes.size() - written);
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

// Some file systems only find out at the sync that the data has no room;
// the save file's own commit syncs too but ignores that failure.
bool syncToDisk(QSaveFile &file, QString *error)
{
    if (::fsync(file.handle()) == 0 || errno == EINVAL)
        return true;
    *error = QString::fromLocal8Bit(std::strerror(errno));
    return false;
}

}

bool write(const QString &path, const QByteArray &bytes, QString *reason)
{
    const QFileInfo existing(path);
    QSaveFile file(path);
    // Unbuffered, so that each write reaches the file and answers for itself.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return failed(path, file.errorString(), reason);
    if (existing.exists())
        file.setPermissions(existing.permissions());
    QString error;
    if (!writeAll(file, bytes) || !file.flush())
        error = file.errorString();
    else
        syncToDisk(file, &error);
    if (!error.isNull()) {
        file.cancelWriting();
        return failed(path, error, reason);
    }
    if (!file.commit())
        return failed(path, file.errorString(), reason);
    return true;
}

}
