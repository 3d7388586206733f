// Start-up of the real editor with a 1 MB file on its command line, from the
// process start until the editor holds the text and has the keyboard, in a
// fresh home each time (so the first-run setup is included), against a bare
// program that only shows the same editor page with the same text.
// Alternating runs; medians.
#include "support/BenchProcess.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int repetitions = 5;

QString writeMegabyteFile(const QTemporaryDir &folder)
{
    const QString path = folder.filePath(QStringLiteral("large.cpp"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    const QByteArray line = "    value = compute(\"text\", other, 42); // a comment on the line\n";
    for (qint64 written = 0; written < (1 << 20); written += line.size())
        file.write(line);
    return path;
}

qint64 median(QList<qint64> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString file = writeMegabyteFile(folder);
    QList<qint64> editor, bare;
    for (int run = 0; run < repetitions; ++run) {
        const qint64 editorMs = BenchProcess().startUntilEditable(QStringLiteral(LARKWOOD_PROGRAM), {file});
        const qint64 bareMs = BenchProcess().startUntilEditable(QStringLiteral(BARE_EDITOR_PROGRAM), {file});
        std::printf("run %d: editor %lld ms, bare page %lld ms\n", run + 1, editorMs, bareMs);
        std::fflush(stdout);
        if (editorMs < 0 || bareMs < 0) {
            std::puts("a program did not become editable within a minute");
            return 1;
        }
        editor << editorMs;
        bare << bareMs;
    }
    std::printf("BENCH startup_editor_ms %lld ms\n", median(editor));
    std::printf("BENCH startup_bare_ms %lld ms\n", median(bare));
    std::printf("BENCH startup_vs_bare %.2f x\n", static_cast<double>(median(editor)) / median(bare));
    return 0;
}
