// Streams 256 MiB of output through the asynchronous runner to a handler that
// only counts, and compares the throughput with cat copying the same bytes to
// /dev/null. Prints MB/s, the ratio and how far resident memory grew.
#include "terminal/Terminal.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <cstdio>

namespace {
const qint64 totalBytes = qint64(256) << 20;
const QString producer = QStringLiteral("head -c %1 /dev/zero | tr '\\0' a").arg(totalBytes);

// A figure in KiB from /proc/self/status ("VmRSS", "VmHWM").
qint64 statusKiB(const QString &field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QRegularExpression line(QStringLiteral("^%1:\\s+(\\d+) kB").arg(field),
                                  QRegularExpression::MultilineOption);
    return line.match(QString::fromLatin1(status.readAll())).captured(1).toLongLong();
}

double megabytesPerSecond(qint64 bytes, qint64 nanoseconds)
{
    return (double(bytes) / 1e6) / (double(nanoseconds) / 1e9);
}

double runnerThroughput(QCoreApplication &app, qint64 *received)
{
    Terminal terminal;
    QElapsedTimer timer;
    timer.start();
    terminal.asyncExec(producer, {}, [received](const QString &chunk) { *received += chunk.size(); });
    while (terminal.task())
        app.processEvents(QEventLoop::WaitForMoreEvents);
    return megabytesPerSecond(*received, timer.nsecsElapsed());
}

double catThroughput()
{
    QElapsedTimer timer;
    timer.start();
    QProcess::execute(QStringLiteral("/bin/bash"), {QStringLiteral("-cl"), producer + QStringLiteral(" | cat > /dev/null")});
    return megabytesPerSecond(totalBytes, timer.nsecsElapsed());
}
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const qint64 baselineKiB = statusKiB(QStringLiteral("VmRSS"));
    qint64 received = 0;
    const double runner = runnerThroughput(app, &received);
    const qint64 peakKiB = statusKiB(QStringLiteral("VmHWM"));
    const double cat = catThroughput();

    std::printf("bytes received:        %lld of %lld\n", static_cast<long long>(received),
                static_cast<long long>(totalBytes));
    std::printf("runner throughput:     %.1f MB/s\n", runner);
    std::printf("cat to /dev/null:      %.1f MB/s\n", cat);
    std::printf("runner / cat:          %.2f\n", runner / cat);
    std::printf("peak RSS growth:       %.1f MiB (baseline %.1f MiB)\n", (peakKiB - baselineKiB) / 1024.0,
                baselineKiB / 1024.0);
    return received == totalBytes ? 0 : 1;
}
