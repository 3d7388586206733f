#include "documents/LWSafeSave.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QtDebug>

namespace LWSafeSave {

bool write(const QString &path, const QByteArray &bytes)
{
    const QFileInfo existing(path);
    const bool keepPermissions = existing.exists();
    const QFileDevice::Permissions permissions = existing.permissions();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning().noquote() << QStringLiteral("Could not save %1: %2").arg(path, file.errorString());
        return false;
    }
    if (keepPermissions)
        file.setPermissions(permissions);
    // A failed write is remembered by the save file: commit then discards
    // the temporary file and leaves the old one untouched.
    file.write(bytes);
    if (!file.commit()) {
        qWarning().noquote() << QStringLiteral("Could not save %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

}
