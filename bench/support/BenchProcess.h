#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <unistd.h>

// Runs a real program of this build as a user starts it: in a home of its
// own, headless, with the resource tree of the build.
class BenchProcess
{
public:
    BenchProcess()
    {
        for (const char *folder : {"home", "config", "data", "runtime"})
            QDir().mkpath(home.filePath(QLatin1String(folder)));
        QFile::setPermissions(home.filePath(QStringLiteral("runtime")),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home.filePath(QStringLiteral("home")));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.filePath(QStringLiteral("runtime")));
        environment.insert(QStringLiteral("LARKWOOD_REPORT_EDITABLE"), QStringLiteral("1"));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    }

    ~BenchProcess()
    {
        process.kill();
        process.waitForFinished(5000);
    }

    // Starts the program and answers the milliseconds until it reports an
    // editable editor, or -1 when it does not within the limit.
    qint64 startUntilEditable(const QString &program, const QStringList &arguments, int limitMs = 60000)
    {
        QElapsedTimer clock;
        clock.start();
        process.start(program, arguments);
        while (clock.elapsed() < limitMs && process.state() != QProcess::NotRunning) {
            process.waitForReadyRead(50);
            if (process.readAll().contains("editable"))
                return clock.elapsed();
        }
        return -1;
    }

    qint64 pid() const { return process.processId(); }

private:
    QTemporaryDir home;
    QProcess process;
};

// CPU time (user and system, in clock ticks) of a process and all its
// descendants, as /proc shows them now.
namespace ProcessTreeCpu {

inline qint64 ticks(qint64 root)
{
    QHash<qint64, qint64> parentOf;
    QHash<qint64, qint64> cpuOf;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(name));
        if (name.toLongLong() <= 0 || !stat.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = stat.readAll();
        // "pid (name) state ppid ... utime stime": fields after the name, from the state on.
        const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
        if (fields.size() < 13)
            continue;
        parentOf.insert(name.toLongLong(), fields.at(1).toLongLong());
        cpuOf.insert(name.toLongLong(), fields.at(11).toLongLong() + fields.at(12).toLongLong());
    }
    qint64 total = 0;
    for (auto process = cpuOf.cbegin(); process != cpuOf.cend(); ++process) {
        for (qint64 up = process.key(); up > 1; up = parentOf.value(up, 0)) {
            if (up == root) {
                total += process.value();
                break;
            }
        }
    }
    return total;
}

inline double ticksPerSecond()
{
    return static_cast<double>(sysconf(_SC_CLK_TCK));
}

}
