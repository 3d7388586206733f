#include "app/LWDefaults.h"
#include "documents/LWDocumentState.h"
#include "documents/LWDocumentTree.h"
#include "support/DocumentFixtures.h"
#include "support/RecordingShell.h"

#include <QtTest>

namespace {

QStringList labels(const LWDocument::List &nodes)
{
    QStringList result;
    for (const LWDocument::Ptr &node : nodes)
        result.append(node->label());
    return result;
}

}

class tst_LWDocumentTree : public QObject
{
    Q_OBJECT

private slots:
    void init() { fixtures = std::make_unique<DocumentFixtures>(); }
    void cleanup() { fixtures.reset(); }

    void importedFolderKeepsRelativePathsFoldersFirstAndFilters();
    void duplicatesAreRefusedWithAnAlert();
    void rememberedPathsSkipUntitledAndMissing();
    void linksBackUpTheBranchAreNotDescended();
    void emptyWorkspaceFacts();
    void stateFromPathAndJson();

private:
    std::unique_ptr<DocumentFixtures> fixtures;
};

void tst_LWDocumentTree::importedFolderKeepsRelativePathsFoldersFirstAndFilters()
{
    fixtures->write("Proj/a/b.txt");
    fixtures->write("Proj/top.txt");
    fixtures->write("Proj/.DS_Store");
    fixtures->write("Proj/z/.ds_store");
    LWDocumentTree tree = LWDocumentTree::emptyTree();
    const LWDocument::Ptr group = tree.addFromPath(fixtures->path("Proj"));
    QCOMPARE(group->label(), QStringLiteral("PROJ"));
    QVERIFY(group->isGroup());
    QCOMPARE(tree.groups().size(), size_t(2));
    QStringList foldersFirst = labels(group->children()).mid(0, 2);
    foldersFirst.sort();
    QCOMPARE(foldersFirst, QStringList({"a", "z"}));
    QCOMPARE(group->childAtIndex(2)->label(), QStringLiteral("top.txt"));
    QCOMPARE(group->childWithLabel(QStringLiteral("z"))->noOfChildren(), 0u);
    QCOMPARE(group->childWithLabel(QStringLiteral("b.txt"))->path(), QStringLiteral("a"));
    QCOMPARE(group->childWithLabel(QStringLiteral("top.txt"))->path(), QString(""));
    QCOMPARE(group->childWithLabel(QStringLiteral("a"))->parent(), group);

    LWDefaults::shared()->setBool(QStringLiteral("LW_WSDoFilter"), false);
    LWDocument::Ptr unfiltered = LWDocument::groupFromPath(fixtures->path("Proj"));
    QVERIFY(unfiltered->hasChildWithLabel(QStringLiteral(".DS_Store")));
    LWDefaults::shared()->removeObjectForKey(QStringLiteral("LW_WSDoFilter"));
}

void tst_LWDocumentTree::duplicatesAreRefusedWithAnAlert()
{
    RecordingShell shell;
    const QString inner = fixtures->write("proj/inner.txt");
    const QString loose = fixtures->write("loose.txt");
    LWDocumentTree tree = LWDocumentTree::emptyTree();
    QVERIFY(tree.addFromPath(fixtures->path("proj")));
    QVERIFY(!tree.addFromPath(fixtures->path("proj")));
    QVERIFY(tree.addFromPath(loose));
    QVERIFY(!tree.addFromPath(loose));
    QCOMPARE(shell.alerts, (QList<QPair<QString, QString>>{
                               {"This folder has already been imported", fixtures->path("proj")},
                               {"This file has already been imported", loose}}));
    QCOMPARE(tree.groups().size(), size_t(2));
    QVERIFY(!tree.addFromPath(QString()));
    QCOMPARE(tree.filesGroup()->noOfChildren(), 1u);

    const LWDocument::Ptr again = tree.addFromPath(inner);
    QVERIFY(again);
    QCOMPARE(tree.documentWithFullPath(inner), again);
    QCOMPARE(again->parent(), tree.filesGroup());
    QCOMPARE(tree.groups()[1]->childAtIndex(0)->fullPath(), inner);
}

void tst_LWDocumentTree::rememberedPathsSkipUntitledAndMissing()
{
    const QString loose = fixtures->write("loose.txt");
    const QString project = fixtures->makeFolder("proj");
    LWDocumentTree tree = LWDocumentTree::emptyTree();
    tree.addEmpty();
    QCOMPARE(tree.rememberedPaths(), QStringList());
    tree.addFromPath(project);
    tree.addFromPath(loose);
    tree.addEmpty();
    QCOMPARE(tree.rememberedPaths(), QStringList({loose, project}));
    QCOMPARE(LWDocumentTree::restorablePaths({loose, fixtures->path("gone.txt"), project}),
             QStringList({loose, project}));
}

void tst_LWDocumentTree::linksBackUpTheBranchAreNotDescended()
{
    fixtures->write("proj/a/file.txt");
    fixtures->write("elsewhere/shared.txt");
    QVERIFY(QFile::link(fixtures->path("proj"), fixtures->path("proj/a/up")));
    QVERIFY(QFile::link(fixtures->path("proj/a"), fixtures->path("proj/a/self")));
    QVERIFY(QFile::link(fixtures->path("elsewhere"), fixtures->path("proj/a/out")));
    QVERIFY(QFile::link(fixtures->path("nothing"), fixtures->path("proj/a/dangling")));

    const LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("proj"));
    const LWDocument::Ptr a = group->childWithLabel(QStringLiteral("a"));
    QVERIFY(a->childWithLabel(QStringLiteral("up"))->isFolder());
    QCOMPARE(a->childWithLabel(QStringLiteral("up"))->noOfChildren(), 0u);
    QCOMPARE(a->childWithLabel(QStringLiteral("self"))->noOfChildren(), 0u);
    QCOMPARE(labels(a->childWithLabel(QStringLiteral("out"))->children()), QStringList({"shared.txt"}));
    QVERIFY(a->childWithLabel(QStringLiteral("dangling"))->isFile());
}

void tst_LWDocumentTree::emptyWorkspaceFacts()
{
    LWDocumentTree tree = LWDocumentTree::emptyTree();
    QVERIFY(tree.unsavedChanges());
    QVERIFY(LWDocumentTree().unsavedChanges());
    const LWDocument::Ptr files = tree.addEmpty();
    QCOMPARE(files, tree.filesGroup());
    QCOMPARE(files->label(), QStringLiteral("FILES"));
    QCOMPARE(files->childAtIndex(0)->label(), QStringLiteral("Untitled"));
    files->childAtIndex(0)->setSaved(false);
    QVERIFY(!tree.unsavedChanges());

    LWDocumentTree copy = tree;
    copy.addTopLevelGroup(LWDocument::filesGroup());
    QCOMPARE(copy.groups().front(), tree.groups().front());
    QCOMPARE(tree.groups().size(), size_t(1));
}

void tst_LWDocumentTree::stateFromPathAndJson()
{
    const LWDocumentState literate = LWDocumentState::stateFromPath(fixtures->write("notes.coffee.md", "# hi"));
    QCOMPARE(literate.specName, QStringLiteral("Markdown"));
    QCOMPARE(literate.mode, std::optional<QString>(QStringLiteral("markdown")));
    QCOMPARE(literate.content, std::optional<QString>(QStringLiteral("# hi")));

    const LWDocumentState binary = LWDocumentState::stateFromPath(fixtures->write("x.unknown", "\xff\xfe"));
    QVERIFY(!binary.content);
    QCOMPARE(binary.specName, QStringLiteral("Plain Text"));

    LWDocumentState state = LWDocumentState::stateWithContent(QStringLiteral("abc"));
    QCOMPARE(state.toJson(), QStringLiteral("{\"content\":\"abc\",\"mode\":\"text\"}"));
    state.updateFromJson(QStringLiteral("{\"mode\": \"python\" /* no content */}"));
    QVERIFY(!state.content);
    QCOMPARE(state.mode, std::optional<QString>(QStringLiteral("python")));
}

QTEST_GUILESS_MAIN(tst_LWDocumentTree)
#include "tst_LWDocumentTree.moc"
