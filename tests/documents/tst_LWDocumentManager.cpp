#include "app/LWDefaults.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWFileMenuController.h"
#include "support/DocumentFixtures.h"
#include "support/RecordingShell.h"

#include <QImage>
#include <QSignalSpy>
#include <QtTest>

namespace {

// The scripts sent, with the shell's own content tags (which count up across
// the program) shown as "T".
QStringList withTagsHidden(QStringList calls)
{
    static const QRegularExpression shellTag(QStringLiteral("(\"tag\":\"|getState\\(')s\\d+"));
    calls.replaceInStrings(shellTag, QStringLiteral("\\1T"));
    return calls;
}

QStringList importSteps(const QStringList &adoption, bool isLast)
{
    QStringList steps{"status message \"Importing Documents...\"", "status message shown",
                      "status spinner running", "status spinner shown"};
    steps += adoption;
    if (isLast)
        steps.append(QStringLiteral("status message \"\""));
    return steps + QStringList{"status message hidden", "status spinner stopped", "status spinner hidden"};
}

}

class tst_LWDocumentManager : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        fixtures = std::make_unique<DocumentFixtures>();
        shell = std::make_unique<RecordingShell>();
    }
    void cleanup()
    {
        shell.reset();
        fixtures.reset();
    }

    void switchingStoresTheOutgoingTextAndLoadsTheIncoming();
    void imagesReplaceTheEditor();
    void untitledWorkspaceStartsWithACopy();
    void startupImportReportsEachPath();
    void workspaceIsRememberedBetweenRuns();
    void newAndOpenAddToTheWorkspace();
    void saveGoesThroughTheDialogForUntitled();
    void openInNewTabNeedsASelectedFile();

private:
    std::unique_ptr<DocumentFixtures> fixtures;
    std::unique_ptr<RecordingShell> shell;
};

void tst_LWDocumentManager::switchingStoresTheOutgoingTextAndLoadsTheIncoming()
{
    LWDocumentManager manager;
    const LWDocument::Ptr a = LWDocument::fileFromPath(fixtures->write("a.py", "A"));
    const LWDocument::Ptr b = LWDocument::fileFromPath(fixtures->write("proj/b.txt", "B"), fixtures->root());
    manager.switchToDoc(a);
    shell->scriptAnswer = QStringLiteral("{\"content\": \"edited A\"}");
    manager.switchToDoc(b);
    shell->scriptAnswer = QStringLiteral("{\"content\": \"edited B\"}");
    manager.switchToDoc(a);
    const QString setA = QStringLiteral("script lw.setState({\"content\":\"%1\",\"mode\":\"python\",\"readOnly\":false,"
                                        "\"tag\":\"T\"});");
    QCOMPARE(withTagsHidden(shell->calls), QStringList({
        "loading spinner hidden", "window title a.py", "editor shown", setA.arg("A"),
        "script lw.loadLocalState('" + a->identity() + "');",
        "loading spinner hidden", "script lw.getState('T')", "script lw.saveLocalState('" + a->identity() + "');",
        "window title b.txt - proj", "editor shown",
        "script lw.setState({\"content\":\"B\",\"mode\":\"text\",\"readOnly\":false,\"tag\":\"T\"});",
        "script lw.loadLocalState('" + b->identity() + "');",
        "loading spinner hidden", "script lw.getState('T')", "script lw.saveLocalState('" + b->identity() + "');",
        "window title a.py", "editor shown", setA.arg("edited A"),
        "script lw.loadLocalState('" + a->identity() + "');"}));
    QCOMPARE(b->content(), std::optional<QString>(QStringLiteral("edited B")));

    shell->calls.clear();
    manager.switchToDoc(a);
    QVERIFY(shell->calls.filter(QStringLiteral("lw.getState")).isEmpty());
    QCOMPARE(manager.currentDocument(), a);
}

void tst_LWDocumentManager::imagesReplaceTheEditor()
{
    QImage picture(4, 3, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(fixtures->path("pic.png")));
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'>"
                           "<rect width='10' height='10' fill='blue'/></svg>";
    LWDocumentManager manager;
    const LWDocument::Ptr text = LWDocument::fileFromPath(fixtures->write("a.txt", "A"));
    manager.switchToDoc(text);
    shell->scriptAnswer = QStringLiteral("{\"content\": \"kept\"}");
    shell->calls.clear();

    manager.switchToDoc(LWDocument::fileFromPath(fixtures->path("pic.png")));
    QCOMPARE(shell->calls.mid(3), QStringList({"window title pic.png", "image preview 4x3"}));
    QCOMPARE(text->content(), std::optional<QString>(QStringLiteral("kept")));

    manager.switchToDoc(LWDocument::fileFromPath(fixtures->write("vector.svg", svg)));
    QCOMPARE(shell->calls.last(), QStringLiteral("image preview 900x900"));
    QCOMPARE(shell->previewImage.pixelColor(450, 450), QColor(Qt::blue));
    manager.switchToDoc(LWDocument::fileFromPath(fixtures->write("capital.SVG", svg)));
    QVERIFY(shell->calls.last() != QStringLiteral("image preview 900x900"));
    QVERIFY(shell->calls.last().startsWith(QStringLiteral("image preview")));
}

void tst_LWDocumentManager::untitledWorkspaceStartsWithACopy()
{
    const auto manager = LWDocumentManager::newWithUntitled();
    const LWDocument::Ptr untitled = manager->documentTree().filesGroup()->childAtIndex(0);
    QCOMPARE(shell->calls, QStringList({"tab add Untitled", "to select Untitled"}));
    QVERIFY(manager->currentDocument() != untitled);
    QCOMPARE(manager->currentDocument()->label(), QStringLiteral("Untitled"));
    QCoreApplication::processEvents();
    QCOMPARE(shell->calls.mid(2), QStringList({"outline reload", "outline expand all with children"}));

    shell->calls.clear();
    manager->switchToDoc(untitled);
    QCOMPARE(withTagsHidden(shell->calls.mid(4)), QStringList({"editor shown",
        "script lw.setState({\"content\":\"\",\"mode\":\"text\",\"readOnly\":false,\"tag\":\"T\"});",
        "script lw.loadLocalState('" + untitled->identity() + "');"}));
}

void tst_LWDocumentManager::startupImportReportsEachPath()
{
    const QString first = fixtures->write("first.txt");
    const QString folder = fixtures->makeFolder("proj");
    const auto manager = LWDocumentManager::newWithPaths({first, folder, first});
    QSignalSpy finished(manager.get(), &LWDocumentManager::importFinished);
    QVERIFY(finished.wait(5000));
    const QStringList expected = QStringList{"tab add Untitled"}
        + importSteps({"to select first.txt", "outline reload", "outline expand FILES"}, false)
        + importSteps({"outline reload", "outline expand PROJ"}, false)
        + importSteps({"outline reload"}, true);
    QCOMPARE(shell->calls, expected);
    QCOMPARE(shell->alerts.size(), 1);
    QCOMPARE(manager->documentTree().rememberedPaths(), QStringList({first, folder}));
    QVERIFY(!manager->currentDocument());
}

void tst_LWDocumentManager::workspaceIsRememberedBetweenRuns()
{
    const QString kept = fixtures->write("kept.txt");
    const QString gone = fixtures->write("gone.txt");
    LWDocumentManager manager;
    manager.documentTree().addFromPath(kept);
    manager.documentTree().addFromPath(gone);
    manager.documentTree().addEmpty();
    manager.rememberWorkspace();
    QCOMPARE(LWDefaults::shared()->arrayForKey(QStringLiteral("LW_PreviouslyOpened")), QStringList({kept, gone}));

    QFile::remove(gone);
    const auto restored = LWDocumentManager::newWithRememberedWorkspace();
    QSignalSpy finished(restored.get(), &LWDocumentManager::importFinished);
    QVERIFY(finished.wait(5000));
    QCOMPARE(restored->documentTree().rememberedPaths(), QStringList({kept}));

    QFile::remove(kept);
    const auto untitled = LWDocumentManager::newWithRememberedWorkspace();
    QCOMPARE(untitled->currentDocument()->label(), QStringLiteral("Untitled"));
    LWDefaults::shared()->removeObjectForKey(QStringLiteral("LW_PreviouslyOpened"));
}

void tst_LWDocumentManager::newAndOpenAddToTheWorkspace()
{
    LWDocumentManager manager;
    LWFileMenuController menu(manager);
    menu.newFromTemplateAction({{"filename", "tool.py"}, {"source", "pass"}});
    QCoreApplication::processEvents();
    QCOMPARE(shell->calls, QStringList({"outline reload", "outline select tool.py", "outline expand FILES"}));
    QCOMPARE(manager.documentTree().filesGroup()->childAtIndex(0)->specName(), QStringLiteral("Python"));

    shell->calls.clear();
    fixtures->write("proj/in.txt");
    shell->pathAnswer = fixtures->path("proj");
    menu.openAction();
    QTRY_COMPARE(manager.documentTree().groups().size(), size_t(2));
    QCOMPARE(shell->calls, QStringList({"open dialog files 1 folders 1 types []", "recent " + shell->pathAnswer,
                                        "status message \"Importing documents...\"", "status message shown",
                                        "status spinner running", "status spinner shown", "status message \"\"",
                                        "status message hidden", "status spinner stopped", "status spinner hidden",
                                        "outline reload", "outline expand PROJ"}));
    menu.openAction();
    QTRY_COMPARE(shell->alerts.size(), 1);
    QCOMPARE(shell->alerts[0].first, QStringLiteral("This folder has already been imported"));
}

void tst_LWDocumentManager::saveGoesThroughTheDialogForUntitled()
{
    LWDocumentManager manager;
    LWFileMenuController menu(manager);
    const LWDocument::Ptr untitled = manager.documentTree().addEmpty()->childAtIndex(0);
    manager.switchToDoc(untitled);
    shell->calls.clear();
    menu.saveAction();
    QCOMPARE(shell->calls, QStringList({"save dialog"}));
    QVERIFY(untitled->isUntitled());

    // A file that cannot be written leaves the node where it was.
    const QString specBefore = untitled->specName();
    shell->pathAnswer = fixtures->path("missing/saved.py");
    shell->scriptAnswer = QStringLiteral("{\"content\": \"print(1)\"}");
    menu.saveAction();
    QVERIFY(untitled->isUntitled());
    QCOMPARE(untitled->label(), QStringLiteral("Untitled"));
    QCOMPARE(untitled->specName(), specBefore);
    QCOMPARE(shell->alerts.size(), 1);
    QCOMPARE(shell->calls.filter("recent").size(), 0);

    shell->calls.clear();
    shell->pathAnswer = fixtures->path("saved.py");
    menu.saveAction();
    QCOMPARE(DocumentFixtures::read(fixtures->path("saved.py")), QByteArray("print(1)"));
    QCOMPARE(untitled->label(), QStringLiteral("saved.py"));
    QCOMPARE(untitled->specName(), QStringLiteral("Python"));
    QCOMPARE(shell->calls.first(), QStringLiteral("save dialog"));
    QCOMPARE(shell->calls.mid(shell->calls.size() - 2), QStringList({"outline reload", "outline select saved.py"}));

    shell->scriptAnswer = QStringLiteral("{\"content\": \"print(2)\"}");
    menu.saveAction();
    QCOMPARE(DocumentFixtures::read(fixtures->path("saved.py")), QByteArray("print(2)"));
    menu.printAction();
    QCOMPARE(shell->calls.last(), QStringLiteral("print print(2)"));
}

void tst_LWDocumentManager::openInNewTabNeedsASelectedFile()
{
    LWDocumentManager manager;
    LWFileMenuController menu(manager);
    QVERIFY(!menu.validateMenuItem(QStringLiteral("openInNewTab:")));
    shell->outlineSelection = LWDocument::emptyFolderInExistingDocument(LWDocument::groupFromPath(fixtures->root()));
    QVERIFY(!menu.validateMenuItem(QStringLiteral("openInNewTab:")));
    QVERIFY(!menu.validateMenuItem(QStringLiteral("saveAction:")));  // no document to save
    shell->outlineSelection = LWDocument::emptyFile();
    QVERIFY(menu.validateMenuItem(QStringLiteral("openInNewTab:")));
    menu.openInNewTab();
    QCOMPARE(shell->calls.last(), QStringLiteral("outline open selection in new tab"));
}

QTEST_GUILESS_MAIN(tst_LWDocumentManager)
#include "tst_LWDocumentManager.moc"
