#include "documents/LWDocumentIcons.h"
#include "documents/LWFolderSync.h"
#include "documents/LWFolderWatcher.h"
#include "support/DocumentFixtures.h"

#include <QSignalSpy>
#include <QtTest>

// Bringing one imported folder in line with what other programs did on disk,
// and watching open folders for such changes.
class tst_LWFolderSync : public QObject
{
    Q_OBJECT

private slots:
    void init() { fixtures = std::make_unique<DocumentFixtures>(); }
    void cleanup() { fixtures.reset(); }

    void newEntriesAppearGoneOnesGoStayingNodesAreKept();
    void unsavedWorkAndNonFoldersAreLeftAlone();
    void watcherSyncsAChangedFolderOnceAndStaysBounded();

private:
    static QStringList labels(const LWDocument::Ptr &folder, qsizetype from = 0);
    std::unique_ptr<DocumentFixtures> fixtures;
};

QStringList tst_LWFolderSync::labels(const LWDocument::Ptr &folder, qsizetype from)
{
    QStringList result;
    for (const LWDocument::Ptr &node : folder->children())
        result.append(node->label());
    result = result.mid(from);
    result.sort();
    return result;
}

void tst_LWFolderSync::newEntriesAppearGoneOnesGoStayingNodesAreKept()
{
    fixtures->write("Proj/lib/inner.txt");
    fixtures->write("Proj/old.txt");
    fixtures->write("Proj/gone.py");
    const LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("Proj"));
    const LWDocument::Ptr lib = group->childWithLabel(QStringLiteral("lib"));
    QVERIFY(!LWFolderSync::syncChildren(group));

    QVERIFY(QFile::rename(fixtures->path("Proj/old.txt"), fixtures->path("Proj/new.txt")));
    QVERIFY(QFile::remove(fixtures->path("Proj/gone.py")));
    fixtures->write("Proj/notes.md");
    fixtures->write("Proj/.DS_Store");
    fixtures->write("Proj/src/deep/main.py");
    QVERIFY(LWFolderSync::syncChildren(group));

    // Folders stay first, the existing folder node and its subtree are kept.
    QCOMPARE(group->childAtIndex(0), lib);
    QCOMPARE(group->childAtIndex(1)->label(), QStringLiteral("src"));
    QCOMPARE(labels(group, 2), QStringList({"new.txt", "notes.md"}));
    QCOMPARE(lib->noOfChildren(), 1u);
    const LWDocument::Ptr main = group->childWithLabel(QStringLiteral("main.py"));
    QCOMPARE(main->path(), QStringLiteral("src/deep"));
    QCOMPARE(main->specName(), QStringLiteral("Python"));
    QCOMPARE(group->childAtIndex(1)->parent(), group);
    QCOMPARE(group->childAtIndex(1)->icon(), LWDocumentIcons::folder());

    // A subfolder syncs against the same import root.
    fixtures->write("Proj/lib/added.txt");
    QVERIFY(LWFolderSync::syncChildren(lib));
    QCOMPARE(lib->childWithLabel(QStringLiteral("added.txt"))->path(), QStringLiteral("lib"));
}

void tst_LWFolderSync::unsavedWorkAndNonFoldersAreLeftAlone()
{
    fixtures->write("Proj/edited.txt");
    fixtures->write("Proj/plain.txt");
    const LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("Proj"));
    group->childWithLabel(QStringLiteral("edited.txt"))->setSaved(false);
    group->addChildDocument(LWDocument::emptyFileWithLabel(QStringLiteral("Untitled")));
    QVERIFY(QFile::remove(fixtures->path("Proj/edited.txt")));
    QVERIFY(QFile::remove(fixtures->path("Proj/plain.txt")));
    QVERIFY(LWFolderSync::syncChildren(group));
    QCOMPARE(labels(group), QStringList({"Untitled", "edited.txt"}));

    // The folder itself gone, a file, the loose-files group, no node at all.
    QVERIFY(QDir(fixtures->path("Proj")).removeRecursively());
    QVERIFY(!LWFolderSync::syncChildren(group));
    QCOMPARE(group->noOfChildren(), 2u);
    QVERIFY(!LWFolderSync::syncChildren(LWDocument::fileFromPath(fixtures->write("loose.txt"))));
    QVERIFY(!LWFolderSync::syncChildren(LWDocument::filesGroup()));
    QVERIFY(!LWFolderSync::syncChildren(nullptr));
}

void tst_LWFolderSync::watcherSyncsAChangedFolderOnceAndStaysBounded()
{
    const LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->makeFolder("Proj"));
    LWFolderWatcher watcher;
    QSignalSpy synced(&watcher, &LWFolderWatcher::folderSynced);
    watcher.watch(group);
    for (int i = 0; i < 20; ++i)
        fixtures->write(QStringLiteral("Proj/burst%1.txt").arg(i));
    QVERIFY(synced.wait(2000));
    QVERIFY(!synced.wait(2 * LWFolderWatcher::settleMilliseconds));
    QCOMPARE(synced.count(), 1);
    QCOMPARE(group->noOfChildren(), 20u);

    watcher.unwatch(group);
    fixtures->write("Proj/unseen.txt");
    QVERIFY(!synced.wait(3 * LWFolderWatcher::settleMilliseconds));

    for (int i = 0; i <= LWFolderWatcher::maximumFolders; ++i)
        watcher.watch(LWDocument::folderFromPath(fixtures->makeFolder(QStringLiteral("Many/f%1").arg(i))));
    QVERIFY(watcher.isWatching(fixtures->path("Many/f0")));
    QVERIFY(!watcher.isWatching(fixtures->path(QStringLiteral("Many/f%1").arg(LWFolderWatcher::maximumFolders))));
}

QTEST_GUILESS_MAIN(tst_LWFolderSync)
#include "tst_LWFolderSync.moc"
