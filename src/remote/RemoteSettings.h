#pragma once

#include <QString>
#include <QStringList>

// The connection part of a folder's remote mapping (".ftp-settings.json"):
// server, credentials, base folder and the names never transferred. Both the
// transfer runs and the connection lister read it the same way.
//
// Beyond the shared keys a mapping may name "privateKey" (an SFTP key file;
// "password" is then its passphrase), "certificate" (a certificate to trust
// for FTP over TLS) and "knownHosts" (a file of SFTP host keys to check).
struct RemoteSettings
{
    QString type;
    QString host;
    QString username;
    QString password;
    QString port;
    QStringList excluded;
    // The base folder without leading or trailing "/".
    QString path;
    QString privateKey;
    QString certificate;
    QString knownHosts;

    // Reads the mapping text with the comment-tolerant reader; text that is
    // not a JSON object gives empty fields. A missing or empty port takes the
    // default of the type.
    static RemoteSettings fromJson(const QString &text);
    // "2077" for http and https, "21" for ftp, "22" for ftps, ftpes and sftp,
    // "" for anything else.
    static QString defaultPort(const QString &type);
    // "/www/" -> "www".
    static QString trimmedPath(const QString &path);
    // The non-empty parts joined with "/".
    static QString joined(const QStringList &parts);

    // "type://host:port/path/", the base of listings and panels.
    QString baseAddress() const;
    // "type://host:port/", what an entry's server path is relative to.
    QString serverAddress() const;
    // The address libcurl connects to for a server path: FTP over TLS uses
    // the "ftp" scheme with TLS required (explicit TLS).
    QString curlAddress(const QString &serverPath, bool folder) const;
    bool usesTls() const;
    // Whether a type names a protocol the transfers speak.
    bool isTransferable() const;
    // The mapping file itself is never transferred: it holds the password.
    bool isExcluded(const QString &name) const;
    // The settings handed to the transfer script, without the password.
    QString transferScriptSettings() const;

    static const QString mappingFileName;
};
