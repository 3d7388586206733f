#include "remote/RemoteSettings.h"

#include "extensions/JSONComments.h"

#include <QUrl>
#include <QVariantMap>

const QString RemoteSettings::mappingFileName = QStringLiteral(".ftp-settings.json");

RemoteSettings RemoteSettings::fromJson(const QString &text)
{
    const QVariantMap map = JSONComments::JSONObjectWithCommentedString(text).toMap();
    RemoteSettings settings;
    settings.type = map.value(QStringLiteral("type")).toString();
    settings.host = map.value(QStringLiteral("host")).toString();
    settings.username = map.value(QStringLiteral("username")).toString();
    settings.password = map.value(QStringLiteral("password")).toString();
    settings.port = map.value(QStringLiteral("port")).toString();
    settings.excluded = map.value(QStringLiteral("excluded")).toStringList();
    settings.path = trimmedPath(map.value(QStringLiteral("path")).toString());
    settings.privateKey = map.value(QStringLiteral("privateKey")).toString();
    settings.certificate = map.value(QStringLiteral("certificate")).toString();
    settings.knownHosts = map.value(QStringLiteral("knownHosts")).toString();
    if (settings.port.isEmpty() && !settings.type.isEmpty())
        settings.port = defaultPort(settings.type);
    return settings;
}

QString RemoteSettings::defaultPort(const QString &type)
{
    if (type == QLatin1String("http") || type == QLatin1String("https"))
        return QStringLiteral("2077");
    if (type == QLatin1String("ftp"))
        return QStringLiteral("21");
    if (type == QLatin1String("ftps") || type == QLatin1String("ftpes") || type == QLatin1String("sftp"))
        return QStringLiteral("22");
    return QString();
}

QString RemoteSettings::trimmedPath(const QString &path)
{
    qsizetype start = 0;
    qsizetype end = path.size();
    while (start < end && path.at(start) == QLatin1Char('/'))
        ++start;
    while (end > start && path.at(end - 1) == QLatin1Char('/'))
        --end;
    return path.mid(start, end - start);
}

QString RemoteSettings::joined(const QStringList &parts)
{
    QStringList kept;
    for (const QString &part : parts) {
        const QString trimmed = trimmedPath(part);
        if (!trimmed.isEmpty())
            kept.append(trimmed);
    }
    return kept.join(QLatin1Char('/'));
}

QString RemoteSettings::baseAddress() const
{
    return QStringLiteral("%1://%2:%3/%4/").arg(type, host, port, path);
}

QString RemoteSettings::serverAddress() const
{
    return QStringLiteral("%1://%2:%3/%4").arg(type, host, port, QString());
}

QString RemoteSettings::curlAddress(const QString &serverPath, bool folder) const
{
    QStringList segments;
    for (const QString &segment : serverPath.split(QLatin1Char('/'), Qt::SkipEmptyParts))
        segments.append(QString::fromLatin1(QUrl::toPercentEncoding(segment)));
    const QString scheme = usesTls() ? QStringLiteral("ftp") : type;
    const QString address = QStringLiteral("%1://%2:%3/%4").arg(scheme, host, port, segments.join(QLatin1Char('/')));
    return folder && !segments.isEmpty() ? address + QLatin1Char('/') : address;
}

bool RemoteSettings::usesTls() const
{
    return type == QLatin1String("ftps") || type == QLatin1String("ftpes");
}

bool RemoteSettings::isTransferable() const
{
    return !host.isEmpty() && (type == QLatin1String("ftp") || type == QLatin1String("sftp") || usesTls());
}

bool RemoteSettings::isExcluded(const QString &name) const
{
    return name == mappingFileName || excluded.contains(name);
}

QString RemoteSettings::transferScriptSettings() const
{
    const QVariantMap settings{{QStringLiteral("t"), type},
                               {QStringLiteral("h"), host},
                               {QStringLiteral("u"), username},
                               {QStringLiteral("port"), port},
                               {QStringLiteral("key"), privateKey},
                               {QStringLiteral("ca"), certificate},
                               {QStringLiteral("knownHosts"), knownHosts}};
    return JSONComments::stringWithJSONObject(settings);
}
