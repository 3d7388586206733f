#include "documents/LWDiskStamp.h"

#include <QFileInfo>

LWDiskStamp LWDiskStamp::of(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    return {true, info.size(), info.lastModified()};
}

bool LWDiskStamp::operator==(const LWDiskStamp &other) const
{
    return exists == other.exists && size == other.size && modified == other.modified;
}
