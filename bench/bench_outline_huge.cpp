// Sidebar figures for one folder of 200,000 files: showing it open the
// first time (natural sorting of every name), bringing the rows in line when
// nothing changed (what every save asks for), one new file on disk, and
// typing a filter. Each step runs on the main thread as in the window.

#include "app/LWDefaultsController.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWFolderSync.h"
#include "documents/LWOutlineOrder.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int Files = 200000;

void touch(const QString &path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_CREAT | O_WRONLY, 0644);
    if (descriptor >= 0)
        ::close(descriptor);
}

double cpuMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Wall time, and processor time, which stays meaningful on a busy machine.
template <typename Step>
void report(const char *name, Step step)
{
    QElapsedTimer timer;
    timer.start();
    const double cpuBefore = cpuMilliseconds();
    step();
    QCoreApplication::processEvents();
    std::printf("BENCH %s %.1f ms (cpu %.1f ms)\n", name, static_cast<double>(timer.nsecsElapsed()) / 1e6,
                cpuMilliseconds() - cpuBefore);
}

}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    LWDefaultsController defaults;
    QTemporaryDir scratch;
    for (int index = 0; index < Files; ++index)
        touch(scratch.filePath(QStringLiteral("file%1.txt").arg(index)));

    LWDocumentTree tree = LWDocumentTree::emptyTree();
    LWDocument::Ptr group;
    report("outline_import_200000", [&] { group = tree.addFromPath(scratch.path()); });
    LWOutlineOrder order;
    report("outline_natural_sort_200000", [&] { order.sorted(group->children()); });
    report("outline_natural_sort_again_200000", [&] { order.sorted(group->children()); });
    WorkspaceOutline outline;
    outline.resize(300, 800);
    outline.show();
    report("outline_show_open_200000", [&] {
        outline.reload(tree);
        outline.expand(group, false);
    });
    report("outline_reload_unchanged_200000", [&] { outline.reload(tree); });
    touch(scratch.filePath(QStringLiteral("file-new.txt")));
    report("outline_folder_sync_one_new_file_200000", [&] { LWFolderSync::syncChildren(group); });
    report("outline_rows_one_new_file_200000", [&] { outline.refreshChildren(group); });
    report("outline_filter_200000", [&] { outline.setFilterText(QStringLiteral("file19999")); });
    report("outline_filter_cleared_200000", [&] { outline.setFilterText(QString()); });
    return 0;
}
