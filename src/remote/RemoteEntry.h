#pragma once

#include <QList>
#include <QString>

// One item of a remote folder listing.
struct RemoteEntry
{
    // The item's path on the server, without a leading "/".
    QString path;
    bool folder = false;

    QString name() const { return path.section(QLatin1Char('/'), -1); }

    // The items of a long listing ("ls -l" lines, as FTP LIST and SFTP give
    // them) of the folder at folderPath; "." and ".." are left out, and a
    // link's target is cut off its name.
    static QList<RemoteEntry> fromLongListing(const QString &listing, const QString &folderPath);
};
