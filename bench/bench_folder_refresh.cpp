// Sidebar refresh figures: a folder shown open in the sidebar gains 10,000
// files on disk, then loses them; each step times bringing the folder's
// children in line with the disk and updating its rows, as the window does
// on the main thread.

#include "app/LWDefaultsController.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWFolderSync.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int Entries = 10000;

void writeFiles(const QString &folder, int count)
{
    for (int index = 0; index < count; ++index) {
        QFile file(QStringLiteral("%1/file%2.txt").arg(folder).arg(index));
        if (file.open(QIODevice::WriteOnly))
            file.write("x");
    }
}

double refreshMilliseconds(WorkspaceOutline &outline, const LWDocument::Ptr &group)
{
    QElapsedTimer timer;
    timer.start();
    LWFolderSync::syncChildren(group);
    outline.refreshChildren(group);
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    LWDefaultsController defaults;
    QTemporaryDir scratch;
    const QString folder = scratch.filePath(QStringLiteral("big"));
    QDir().mkpath(folder);
    writeFiles(folder, 10);

    LWDocumentTree tree = LWDocumentTree::emptyTree();
    const LWDocument::Ptr group = tree.addFromPath(folder);
    WorkspaceOutline outline;
    outline.reload(tree);
    outline.expand(group, false);
    outline.resize(300, 800);
    outline.show();
    QCoreApplication::processEvents();

    writeFiles(folder, Entries);
    std::printf("BENCH folder_refresh_add_10000 %.1f ms\n", refreshMilliseconds(outline, group));
    QFile::remove(folder + QStringLiteral("/file5000.txt"));
    std::printf("BENCH folder_refresh_one_gone_of_10000 %.1f ms\n", refreshMilliseconds(outline, group));
    for (int index = 0; index < Entries; index += 2)
        QFile::remove(QStringLiteral("%1/file%2.txt").arg(folder).arg(index));
    std::printf("BENCH folder_refresh_remove_5000 %.1f ms\n", refreshMilliseconds(outline, group));
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    std::printf("BENCH folder_refresh_remove_all %.1f ms\n", refreshMilliseconds(outline, group));
    return 0;
}
