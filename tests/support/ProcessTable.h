#pragma once

#include <QDir>
#include <QFile>
#include <QList>

#include <algorithm>

#include <unistd.h>

// The machine's processes as /proc lists them: enough to find the process
// groups of commands this test started and what is still alive in them.
namespace ProcessTable {

struct Entry
{
    qint64 pid = 0;
    QByteArray name;
    bool zombie = false;
    qint64 parent = 0;
    qint64 group = 0;
};

inline QList<Entry> entries()
{
    QList<Entry> found;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &name : names) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(name));
        if (name.toLongLong() <= 0 || !stat.open(QIODevice::ReadOnly))
            continue;
        // "pid (name) state parent group ...": the name may hold blanks and parentheses.
        const QByteArray text = stat.readAll();
        const qsizetype open = text.indexOf('('), close = text.lastIndexOf(')');
        const QList<QByteArray> fields = text.mid(close + 2).split(' ');
        if (open < 0 || fields.size() < 3)
            continue;
        found.append({name.toLongLong(), text.mid(open + 1, close - open - 1), fields.at(0) == "Z",
                      fields.at(1).toLongLong(), fields.at(2).toLongLong()});
    }
    return found;
}

// Processes of the group still alive; zombies waiting to be reaped count as gone.
inline int liveMembers(qint64 group)
{
    int count = 0;
    for (const Entry &entry : entries())
        count += entry.group == group && !entry.zombie;
    return count;
}

// The groups, led by children of this process, that hold a process of the given name.
inline QList<qint64> childGroupsRunning(const QByteArray &name)
{
    const QList<Entry> all = entries();
    QList<qint64> groups;
    for (const Entry &entry : all) {
        const bool ledByChild = std::any_of(all.begin(), all.end(), [&](const Entry &leader) {
            return leader.pid == entry.group && leader.parent == ::getpid();
        });
        if (entry.name == name && !entry.zombie && ledByChild && !groups.contains(entry.group))
            groups.append(entry.group);
    }
    return groups;
}

}
