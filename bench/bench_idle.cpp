// CPU use of the real editor doing nothing: one document open, after a
// settling period, over 30 s, counting every process of it (the web engine's
// helpers too). The bare editor page is measured the same way, for the share
// that the web engine takes by itself while it shows a page.
#include "support/BenchProcess.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

namespace {

constexpr int settleSeconds = 10;
constexpr int measuredSeconds = 30;

// Percent of one core, or a negative value when the program never became editable.
double idleCpuPercent(const QString &program, const QString &file)
{
    BenchProcess process;
    if (process.startUntilEditable(program, {file}) < 0)
        return -1;
    QThread::sleep(settleSeconds);
    const qint64 before = ProcessTreeCpu::ticks(process.pid());
    QThread::sleep(measuredSeconds);
    const qint64 used = ProcessTreeCpu::ticks(process.pid()) - before;
    return 100.0 * used / ProcessTreeCpu::ticksPerSecond() / measuredSeconds;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("idle.cpp"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write("int main()\n{\n    return 0;\n}\n");
    file.close();

    const double editor = idleCpuPercent(QStringLiteral(LARKWOOD_PROGRAM), path);
    const double bare = idleCpuPercent(QStringLiteral(BARE_EDITOR_PROGRAM), path);
    if (editor < 0 || bare < 0) {
        std::puts("a program did not become editable within a minute");
        return 1;
    }
    std::printf("BENCH idle_cpu_percent %.2f %%\n", editor);
    std::printf("BENCH idle_bare_page_cpu_percent %.2f %%\n", bare);
    return 0;
}
