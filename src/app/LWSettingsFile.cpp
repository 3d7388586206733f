#include "app/LWSettingsFile.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QStringDecoder>

namespace LWSettingsFile {

namespace {

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/Larkwood");
}

}

QString path()
{
    return folder() + QStringLiteral("/Larkwood.conf");
}

void migrate()
{
    const QString older = folder() + QStringLiteral("/Larkwood.ini");
    if (QFile::exists(path()) || !QFile::exists(older))
        return;
    if (QFile::rename(older, path()))
        qInfo("LWDefaults : settings moved from \"%s\" to \"%s\"", qUtf8Printable(older), qUtf8Printable(path()));
    else
        qWarning("LWDefaults : could not move \"%s\" to \"%s\"", qUtf8Printable(older), qUtf8Printable(path()));
}

void keepCopyIfDamaged()
{
    QFile file(path());
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    if (!utf8.hasError() && !text.contains(QChar(0)))
        return;
    const QString copy = path() + QStringLiteral(".unreadable");
    QFile::remove(copy);
    if (QFile::copy(path(), copy))
        qWarning("LWDefaults : \"%s\" is damaged; the registered defaults apply where it cannot be read and "
                 "a copy is kept at \"%s\"",
                 qUtf8Printable(path()), qUtf8Printable(copy));
    else
        qWarning("LWDefaults : \"%s\" could not be read, nor copied aside", qUtf8Printable(path()));
}

}
