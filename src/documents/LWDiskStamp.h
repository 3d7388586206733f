#pragma once

#include <QDateTime>
#include <QString>

// What a file on disk looked like at one moment: whether it existed, its
// size and its modification time. Two stamps of the same file differ when
// another program wrote, replaced or removed it in between.
struct LWDiskStamp
{
    bool exists = false;
    qint64 size = 0;
    QDateTime modified;

    static LWDiskStamp of(const QString &path);
    bool operator==(const LWDiskStamp &other) const;
    bool operator!=(const LWDiskStamp &other) const { return !(*this == other); }
};
