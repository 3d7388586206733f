// Workspace figures: importing a generated tree of about 200,000 entries
// against `find` over the same tree, memory per node, filtering that tree and
// walking every filtered row as the outline does, the hexadecimal view of a
// 64 MiB binary and loading a 100 MB text file.

#include "app/LWDefaultsController.h"
#include "documents/LWDocument.h"
#include "documents/LWHexRendering.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int TopFolders = 100;
constexpr int FoldersEach = 100;
constexpr int FilesEach = 19;

// 100 folders of 100 folders of 19 files; every 20,000th file is a "needle".
qint64 generateTree(const QString &root)
{
    qint64 entries = 0;
    for (int top = 0; top < TopFolders; ++top) {
        const QByteArray topPath = QFile::encodeName(root) + "/module" + QByteArray::number(top);
        ::mkdir(topPath.constData(), 0755);
        ++entries;
        for (int folder = 0; folder < FoldersEach; ++folder) {
            const QByteArray folderPath = topPath + "/package" + QByteArray::number(folder);
            ::mkdir(folderPath.constData(), 0755);
            ++entries;
            for (int file = 0; file < FilesEach; ++file, ++entries) {
                const char *stem = entries % 20000 == 0 ? "needle" : "source";
                const QByteArray filePath = folderPath + "/" + stem + QByteArray::number(file) + ".py";
                ::close(::open(filePath.constData(), O_CREAT | O_WRONLY, 0644));
            }
        }
    }
    return entries;
}

double secondsOf(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() / 1e9;
}

double bestOf(int runs, const std::function<void()> &work)
{
    double best = 1e9;
    for (int run = 0; run < runs; ++run)
        best = std::min(best, secondsOf(work));
    return best;
}

// Heap bytes of one string's text as the allocator hands them out.
qint64 textBytes(const QString &text)
{
    return text.isEmpty() ? 0 : ((16 + 2 * (text.capacity() + 1) + 8 + 15) / 16) * 16;
}

void countNodes(const LWDocument::Ptr &node, qint64 &nodes, qint64 &texts)
{
    ++nodes;
    texts += textBytes(node->label()) + textBytes(node->fullPath());
    if (!node->children().empty())
        texts += textBytes(node->children().front()->path());
    for (const LWDocument::Ptr &child : node->children())
        countNodes(child, nodes, texts);
}

// The outline's walk: every row of every expanded item, asked row by row.
qint64 expandAll(const LWDocument::Ptr &node, const QString &filter)
{
    qint64 rows = 0;
    const quint64 count = node->noOfChildrenFiltered(filter);
    for (quint64 index = 0; index < count; ++index)
        rows += 1 + expandAll(node->childAtIndex(index, filter), filter);
    return rows;
}

void benchImport(const QString &root)
{
    const double findSeconds = bestOf(3, [&] {
        QProcess find;
        find.setStandardOutputFile(QProcess::nullDevice());
        find.start(QStringLiteral("find"), {root});
        find.waitForFinished(-1);
    });
    LWDocument::Ptr group;
    const double importSeconds = bestOf(3, [&] {
        group.reset();
        group = LWDocument::groupFromPath(root);
    });
    group.reset();
    const size_t heapBefore = mallinfo2().uordblks;
    group = LWDocument::groupFromPath(root);
    const size_t heapAfter = mallinfo2().uordblks;
    qint64 nodes = 0;
    qint64 texts = 0;
    countNodes(group, nodes, texts);
    const double perNode = double(heapAfter - heapBefore) / nodes;
    const double beyondTexts = double(heapAfter - heapBefore - texts) / nodes;
    std::printf("import of %lld nodes: %.3f s, find: %.3f s, ratio %.2f (target <= 2.5)\n",
                static_cast<long long>(nodes), importSeconds, findSeconds, importSeconds / findSeconds);
    std::printf("memory per node: %.0f bytes, %.0f beyond the path texts (target < 400)\n", perNode, beyondTexts);

    const QString needle = QStringLiteral("needle");
    qint64 rows = 0;
    const double filterSeconds = secondsOf([&] { rows = expandAll(group, needle); });
    const double againSeconds = secondsOf([&] { rows = expandAll(group, needle); });
    std::printf("filter \"needle\" and expand all: %lld rows in %.3f s, again %.4f s (target < 0.5 s)\n",
                static_cast<long long>(rows), filterSeconds, againSeconds);
    qint64 allRows = 0;
    const double unfilteredSeconds = secondsOf([&] { allRows = expandAll(group, QStringLiteral("source")); });
    std::printf("filter \"source\" (nearly everything) and expand all: %lld rows in %.3f s\n",
                static_cast<long long>(allRows), unfilteredSeconds);
}

void benchHexadecimal()
{
    QByteArray bytes(64 << 20, Qt::Uninitialized);
    QRandomGenerator generator(7);
    generator.fillRange(reinterpret_cast<quint32 *>(bytes.data()), bytes.size() / 4);
    QString text;
    const double seconds = bestOf(3, [&] {
        text.clear();
        text = LWHexRendering::render(bytes);
    });
    // The result is about 300 MB of UTF-16; part of the time is the kernel
    // handing out that much fresh memory, measured here on its own.
    const qsizetype resultSize = text.size();
    const double freshMemory = bestOf(3, [&] {
        text.clear();
        QString blank(resultSize, Qt::Uninitialized);
        std::memset(static_cast<void *>(blank.data()), 0, resultSize * sizeof(QChar));
    });
    std::printf("hexadecimal view of 64 MiB: %.3f s, %.0f MB/s (target >= 200); "
                "fresh memory for the result alone: %.3f s\n",
                seconds, bytes.size() / seconds / 1e6, freshMemory);
}

void benchLargeText(const QString &folder)
{
    const QString path = folder + QStringLiteral("/large.txt");
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    const QByteArray line = "let value = compute(index) + \xc3\xa9l\xc3\xa9ment; // a line of source text\n";
    for (qint64 written = 0; written < 100'000'000; written += line.size())
        file.write(line);
    file.close();
    LWDocument::Ptr document = LWDocument::fileFromPath(path);
    const double seconds = secondsOf([&] { document->getContent(); });
    std::printf("100 MB text file loaded as text in %.3f s (%s)\n", seconds,
                document->readOnly() ? "read-only hexadecimal!" : "editable text");
}

}

int main(int argc, char **argv)
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    QCoreApplication application(argc, argv);
    LWDefaultsController defaults;
    QTemporaryDir scratch;
    // Arguments pick parts ("import", "hex", "text"); none runs all three.
    const QStringList parts = application.arguments().mid(1);
    const auto wanted = [&](const char *part) { return parts.isEmpty() || parts.contains(QLatin1String(part)); };
    if (wanted("import")) {
        const QString root = scratch.path() + QStringLiteral("/tree");
        ::mkdir(QFile::encodeName(root).constData(), 0755);
        QElapsedTimer timer;
        timer.start();
        const qint64 entries = generateTree(root);
        std::printf("generated %lld entries in %.1f s\n", static_cast<long long>(entries), timer.elapsed() / 1000.0);
        benchImport(root);
    }
    if (wanted("hex"))
        benchHexadecimal();
    if (wanted("text"))
        benchLargeText(scratch.path());
    return 0;
}
