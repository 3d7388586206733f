#include "documents/LWFileReading.h"

#include "documents/LWTextEncoding.h"

#include <QFile>
#include <QLocale>
#include <QtDebug>

namespace LWFileReading {

namespace {

constexpr qint64 SniffLength = 64 * 1024;

}

Result read(const QString &path, quint64 preferred)
{
    Result result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning().noquote() << QStringLiteral("Could not read %1: %2").arg(path, file.errorString());
        return result;
    }
    result.bytes = file.read(SniffLength);
    result.binary = result.bytes.contains('\0') && !LWTextEncoding::mayHoldNulBytes(result.bytes, preferred);
    if (result.binary) {
        result.bytes += file.read(BinaryPreviewLimit - result.bytes.size());
        result.truncated = !file.atEnd();
    } else {
        result.bytes += file.readAll();
    }
    result.ok = file.error() == QFileDevice::NoError;
    if (!result.ok)
        qWarning().noquote() << QStringLiteral("Could not read %1: %2").arg(path, file.errorString());
    return result;
}

QString sizeText(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

}
