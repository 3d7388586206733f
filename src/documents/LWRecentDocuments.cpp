#include "documents/LWRecentDocuments.h"

#include "app/LWDefaults.h"

namespace LWRecentDocuments {

namespace {

const QString Key = QStringLiteral("LW_RecentDocuments");

void store(const QStringList &paths)
{
    LWDefaults::shared()->setObject(Key, paths);
    LWDefaults::shared()->synchronize();
}

}

QStringList paths()
{
    return LWDefaults::shared()->arrayForKey(Key);
}

void note(const QString &path)
{
    if (path.isEmpty())
        return;
    QStringList recent = paths();
    recent.removeAll(path);
    recent.prepend(path);
    store(recent.mid(0, Limit));
}

void forget(const QString &path)
{
    QStringList recent = paths();
    if (recent.removeAll(path) > 0)
        store(recent);
}

void clear()
{
    store({});
}

}
