// CPU use of the real editor doing nothing: one document open, after a
// settling period, over 30 s, counting every process of it (the web engine's
// helpers too).
#include "support/BenchProcess.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

namespace {

constexpr int settleSeconds = 10;
constexpr int measuredSeconds = 30;

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("idle.txt"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write("int main()\n{\n    return 0;\n}\n");
    file.close();

    BenchProcess editor;
    if (editor.startUntilEditable(QStringLiteral(LARKWOOD_PROGRAM), {path}) < 0) {
        std::puts("the editor did not become editable within a minute");
        return 1;
    }
    QThread::sleep(settleSeconds);
    const qint64 before = ProcessTreeCpu::ticks(editor.pid());
    QThread::sleep(measuredSeconds);
    const qint64 used = ProcessTreeCpu::ticks(editor.pid()) - before;
    const double percent = 100.0 * used / ProcessTreeCpu::ticksPerSecond() / measuredSeconds;
    std::printf("BENCH idle_cpu_percent %.2f %%\n", percent);
    return 0;
}
