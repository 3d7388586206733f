#include "extensions/LWBundle.h"

#include "extensions/JSONComments.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QtDebug>

LWBundle::LWBundle(const QString &path)
    : bundlePath(path), bundleName(nameFromPath(path))
{
    const QString manifestPath = path + QStringLiteral("/info.json");
    if (QFileInfo::exists(manifestPath))
        manifest = readJSONFile(manifestPath).toMap();
    else
        qInfo("LWBundle :: no info.json in %s", qUtf8Printable(path));
}

QString LWBundle::infoText(const QString &key) const
{
    return manifest.value(key).toString();
}

QString LWBundle::nameFromPath(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

QVariant LWBundle::readJSONFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("LWBundle : readJSONFile :: cannot read %s", qUtf8Printable(path));
        return {};
    }
    const QByteArray bytes = file.readAll();
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError()) {
        qWarning("LWBundle : readJSONFile :: not UTF-8 text: %s", qUtf8Printable(path));
        return {};
    }
    const QVariant object = JSONComments::JSONObjectWithCommentedData(text.toUtf8(), 0);
    if (!object.isValid())
        qWarning("LWBundle : readJSONFile :: malformed JSON: %s", qUtf8Printable(path));
    return object;
}
