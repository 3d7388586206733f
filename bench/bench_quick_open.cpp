// Quick open figures over a workspace of 200,000 files: walking the tree
// into the index, and each keystroke of a query typed letter by letter, from
// the keystroke to its first results on the window's thread. The printed
// quick_open_ms is the worst keystroke (the median is printed beside it).

#include "documents/LWDocumentTree.h"
#include "search/BackgroundFuzzySearch.h"
#include "search/WorkspaceFileIndex.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QStringList>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int Folders = 2000;
constexpr int FilesPerFolder = 100;

const QStringList Words = {"main", "window", "controller", "view", "model", "search", "index", "parser",
                           "token", "buffer", "render", "layout", "widget", "config", "network", "socket",
                           "stream", "file", "path", "util", "helper", "manager", "service", "test"};
const QStringList Extensions = {"cpp", "h", "js", "py", "md", "txt"};

LWDocument::Ptr node(LWDocument::Kind kind, const QString &label, const QString &fullPath)
{
    LWDocument::Ptr made = LWDocument::createBare();
    made->setType(kind);
    made->setLabel(label);
    made->setFullPath(fullPath);
    return made;
}

QString capitalized(const QString &word)
{
    return word.left(1).toUpper() + word.mid(1);
}

// src/<word><n>/<word>/<Word><Word><n>.<ext>, names as a code base has them.
LWDocument::Ptr bigGroup(const QString &root)
{
    LWDocument::Ptr group = node(LWDocument::Group, QStringLiteral("BIG"), root);
    LWDocument::List folders;
    for (int f = 0; f < Folders; ++f) {
        const QString folderPath =
            QStringLiteral("%1/src/%2%3/%4").arg(root, Words[f % Words.size()]).arg(f).arg(Words[(f / 7) % Words.size()]);
        LWDocument::Ptr folder = node(LWDocument::Folder, folderPath.section('/', -1), folderPath);
        LWDocument::List files;
        for (int i = 0; i < FilesPerFolder; ++i) {
            const int n = f * FilesPerFolder + i;
            const QString name = QStringLiteral("%1%2%3.%4")
                                     .arg(capitalized(Words[n % Words.size()]),
                                          capitalized(Words[(n / Words.size()) % Words.size()]))
                                     .arg(n)
                                     .arg(Extensions[n % Extensions.size()]);
            files.push_back(node(LWDocument::File, name, folderPath + QLatin1Char('/') + name));
        }
        folder->adoptLoadedChildren(std::move(files));
        folders.push_back(folder);
    }
    group->adoptLoadedChildren(std::move(folders));
    return group;
}

// Runs the event loop until the signal comes.
template <typename Sender, typename Signal>
void waitFor(Sender *sender, Signal signal)
{
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, &QEventLoop::quit);
    loop.exec();
}

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    LWDocumentTree tree = LWDocumentTree::emptyTree();
    tree.addTopLevelGroup(bigGroup(QStringLiteral("/work/project")));

    WorkspaceFileIndex index;
    QElapsedTimer timer;
    timer.start();
    index.refresh(tree);
    const double walk = milliseconds(timer);
    waitFor(&index, &WorkspaceFileIndex::rebuilt);
    std::printf("BENCH quick_open_index_walk_ms %.1f ms (window's thread)\n", walk);
    std::printf("BENCH quick_open_index_ready_ms %.1f ms (%zu files)\n", milliseconds(timer), index.files()->size());

    BackgroundFuzzySearch search(50);
    search.setCandidates(index.candidates());
    const QString typed = QStringLiteral("winconman");
    std::vector<double> keystrokes;
    for (int length = 0; length <= typed.size(); ++length) {
        const QString query = typed.left(length);
        size_t shown = 0;
        QEventLoop loop;
        QObject::connect(&search, &BackgroundFuzzySearch::resultsReady, &loop,
                         [&](const QString &, const std::vector<FuzzyRanking::Result> &results) {
                             shown = results.size();
                             loop.quit();
                         });
        timer.restart();
        search.search(query);
        loop.exec();
        keystrokes.push_back(milliseconds(timer));
        std::printf("  '%s': %.1f ms, %zu shown\n", qPrintable(query), keystrokes.back(), shown);
    }
    std::vector<double> sorted = keystrokes;
    std::sort(sorted.begin(), sorted.end());
    std::printf("BENCH quick_open_ms %.1f ms (worst keystroke; median %.1f ms)\n", sorted.back(),
                sorted[sorted.size() / 2]);
    return 0;
}
