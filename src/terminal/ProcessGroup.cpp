#include "terminal/ProcessGroup.h"

#include <QDebug>
#include <QMutex>
#include <QProcess>
#include <QSet>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <unistd.h>

namespace ProcessGroup {

namespace {

// Group ids of the groups started so far and not yet killed. A group
// outlives its leader when background jobs remain, so it stays listed after
// the leader has ended.
struct LiveGroups
{
    QMutex lock;
    QSet<qint64> ids;
};

LiveGroups &liveGroups()
{
    static LiveGroups groups;
    return groups;
}

void killGroup(qint64 id)
{
    if (::kill(-pid_t(id), SIGKILL) != 0 && errno != ESRCH)
        qWarning("Cannot stop process group %lld: %s", static_cast<long long>(id), strerror(errno));
}

}

void start(QProcess *process, const QString &program, const QStringList &arguments)
{
    // Runs in the child between fork and exec: only async-signal-safe calls.
    process->setChildProcessModifier([] { ::setsid(); });
    process->start(program, arguments);
    if (process->processId() <= 0)
        return;
    LiveGroups &groups = liveGroups();
    const QMutexLocker locker(&groups.lock);
    groups.ids.insert(process->processId());
}

bool kill(const QProcess *process)
{
    const qint64 id = process->processId();
    LiveGroups &groups = liveGroups();
    {
        const QMutexLocker locker(&groups.lock);
        if (id <= 0 || !groups.ids.remove(id))
            return false;
    }
    killGroup(id);
    // A child killed before it made its own group is not found as a group.
    ::kill(pid_t(id), SIGKILL);
    return true;
}

void killAll()
{
    LiveGroups &groups = liveGroups();
    const QMutexLocker locker(&groups.lock);
    for (const qint64 id : std::as_const(groups.ids))
        killGroup(id);
    groups.ids.clear();
}

}
