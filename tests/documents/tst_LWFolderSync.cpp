#include "documents/LWDocumentTree.h"
#include "documents/LWFolderSync.h"
#include "documents/LWFolderWatcher.h"
#include "support/DocumentFixtures.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

QStringList labels(const LWDocument::Ptr &folder)
{
    QStringList result;
    for (const LWDocument::Ptr &node : folder->children())
        result.append(node->label());
    return result;
}

}

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
    void watcherSyncsAChangedFolderAndStaysBounded();

private:
    std::unique_ptr<DocumentFixtures> fixtures;
};

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

    QCOMPARE(labels(group).mid(0, 2), QStringList({"lib", "src"}));
    QStringList files = labels(group).mid(2);
    files.sort();
    QCOMPARE(files, QStringList({"new.txt", "notes.md"}));
    QCOMPARE(group->childWithLabel(QStringLiteral("lib")), lib);
    QCOMPARE(lib->noOfChildren(), 1u);
    const LWDocument::Ptr src = group->childWithLabel(QStringLiteral("src"));
    QVERIFY(src->isFolder());
    QCOMPARE(src->parent(), group);
    const LWDocument::Ptr main = group->childWithLabel(QStringLiteral("main.py"));
    QVERIFY(main);
    QCOMPARE(main->path(), QStringLiteral("src/deep"));
    QCOMPARE(main->specName(), QStringLiteral("Python"));
    QCOMPARE(group->childWithLabel(QStringLiteral("notes.md"))->parent(), group);

    // A subfolder syncs against the same import root.
    fixtures->write("Proj/lib/added.txt");
    QVERIFY(LWFolderSync::syncChildren(lib));
    QCOMPARE(lib->childWithLabel(QStringLiteral("added.txt"))->path(), QStringLiteral("lib"));
    QVERIFY(!LWFolderSync::syncChildren(group));
}

void tst_LWFolderSync::unsavedWorkAndNonFoldersAreLeftAlone()
{
    fixtures->write("Proj/edited.txt");
    fixtures->write("Proj/plain.txt");
    const LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("Proj"));
    group->childWithLabel(QStringLiteral("edited.txt"))->setSaved(false);
    LWDocument::Ptr untitled = LWDocument::emptyFileWithLabel(QStringLiteral("Untitled"));
    group->addChildDocument(untitled);
    QVERIFY(QFile::remove(fixtures->path("Proj/edited.txt")));
    QVERIFY(QFile::remove(fixtures->path("Proj/plain.txt")));

    QVERIFY(LWFolderSync::syncChildren(group));
    QCOMPARE(labels(group), QStringList({"edited.txt", "Untitled"}));

    // A file where a folder was, a vanished folder and the loose-files group.
    const LWDocument::Ptr file = LWDocument::fileFromPath(fixtures->write("loose.txt"));
    QVERIFY(!LWFolderSync::syncChildren(file));
    QVERIFY(QDir(fixtures->path("Proj")).removeRecursively());
    QVERIFY(!LWFolderSync::syncChildren(group));
    QCOMPARE(labels(group), QStringList({"edited.txt", "Untitled"}));
    QVERIFY(!LWFolderSync::syncChildren(LWDocument::filesGroup()));
    QVERIFY(!LWFolderSync::syncChildren(nullptr));
}

void tst_LWFolderSync::watcherSyncsAChangedFolderAndStaysBounded()
{
    fixtures->write("Proj/first.txt");
    const LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("Proj"));
    LWFolderWatcher watcher;
    QSignalSpy synced(&watcher, &LWFolderWatcher::folderSynced);
    watcher.watch(group);
    QVERIFY(watcher.isWatching(group->fullPath()));

    // A burst of changes is handled once, after it settles.
    for (int i = 0; i < 20; ++i)
        fixtures->write(QStringLiteral("Proj/burst%1.txt").arg(i));
    QVERIFY(synced.wait(2000));
    QTest::qWait(2 * LWFolderWatcher::settleMilliseconds);
    QCOMPARE(synced.count(), 1);
    QCOMPARE(synced.first().first().value<LWDocument::Ptr>(), group);
    QCOMPARE(group->noOfChildren(), 21u);

    watcher.unwatch(group);
    fixtures->write("Proj/unseen.txt");
    QVERIFY(!synced.wait(3 * LWFolderWatcher::settleMilliseconds));

    LWDocument::Ptr many = LWDocument::groupFromPath(fixtures->makeFolder("Many"));
    for (int i = 0; i <= LWFolderWatcher::maximumFolders; ++i)
        fixtures->makeFolder(QStringLiteral("Many/f%1").arg(i));
    LWFolderSync::syncChildren(many);
    for (const LWDocument::Ptr &folder : many->children())
        watcher.watch(folder);
    int watched = 0;
    for (const LWDocument::Ptr &folder : many->children())
        watched += watcher.isWatching(folder->fullPath());
    QCOMPARE(watched, LWFolderWatcher::maximumFolders);
}

QTEST_GUILESS_MAIN(tst_LWFolderSync)
#include "tst_LWFolderSync.moc"
