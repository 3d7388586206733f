#include "app/LWDefaults.h"
#include "documents/LWDocument.h"
#include "documents/LWDocumentIcons.h"
#include "documents/LWDocumentArchive.h"
#include "documents/LWDocumentManager.h"
#include "editor/TextOffers.h"
#include "support/DocumentFixtures.h"
#include "support/RecordingShell.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

LWDocument::Ptr fileAt(const QString &path)
{
    return LWDocument::fileFromPath(path);
}

QStringList labels(const LWDocument::List &nodes)
{
    QStringList result;
    for (const LWDocument::Ptr &node : nodes)
        result.append(node->label());
    return result;
}

}

class tst_LWDocument : public QObject
{
    Q_OBJECT

private slots:
    void init() { fixtures = std::make_unique<DocumentFixtures>(); }
    void cleanup()
    {
        fixtures.reset();
        LWDefaults::shared()->removeObjectForKey(QStringLiteral("LW_DefaultEncoding"));
        LWDefaults::shared()->removeObjectForKey(QStringLiteral("LW_User_Extensions"));
    }

    void contentIsDecodedOnceOrShownAsHexadecimal();
    void hexadecimalLinesHoldEightGroups();
    void specificationIsChosenFromTheName();
    void factoriesPlaceNodesInTheirFolder();
    void reorderCountsTheDropPositionBeforeRemoval();
    void movingToAnotherParentMovesOnDisk();
    void filterKeepsFoldersOnTheWayAndFollowsChanges();
    void savedStateAndRemoteMappingLookAtChildren();
    void renamingUntitledChangesOnlyTheNode();
    void renamingOnDiskKeepsThePath();
    void jsonFormsAndCopy();
    void editorTagsSpareUnchangedText();
    void identityIsNeverReused();
    void archiveKeepsTheSubtreeAndRefusesDamage();
    void savingWritesTheEditorTextAndKeepsPermissions();
    void interruptedSaveLeavesOldOrNewContent();
    void failedSaveIsToldAndKeepsTheChanges();
    void fullDiskLeavesTheOldFile();
    void unchangedTextIsWrittenBackAsRead_data();
    void unchangedTextIsWrittenBackAsRead();

private:
    std::unique_ptr<DocumentFixtures> fixtures;
};

void tst_LWDocument::contentIsDecodedOnceOrShownAsHexadecimal()
{
    LWDocument::Ptr empty = fileAt(fixtures->write("empty.txt", ""));
    QCOMPARE(empty->getContent(), QString(""));
    QVERIFY(!empty->readOnly());

    const QString textPath = fixtures->write("text.py", "print('h\xc3\xa9')\n");
    LWDocument::Ptr text = fileAt(textPath);
    QVERIFY(!text->content());
    QCOMPARE(text->getContent(), QStringLiteral("print('hé')\n"));
    fixtures->write("text.py", "changed");
    QCOMPARE(text->getContent(), QStringLiteral("print('hé')\n"));

    LWDefaults::shared()->setInteger(QStringLiteral("LW_DefaultEncoding"), 5);
    QCOMPARE(fileAt(fixtures->write("latin.txt", "caf\xe9"))->getContent(), QStringLiteral("café"));
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DefaultEncoding"), 4);

    // High bytes alone are text in some encoding; NUL bytes make content binary.
    QByteArray binary(1, '\0');
    for (int value = 0x81; value < 0x80 + 40; ++value)
        binary.append(char(value));
    LWDocument::Ptr hex = fileAt(fixtures->write("blob.bin", binary));
    const QStringList lines = hex->getContent().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0], QStringLiteral("00818283 84858687 88898a8b 8c8d8e8f 90919293 94959697 98999a9b 9c9d9e9f "));
    QCOMPARE(lines[1], QStringLiteral("a0a1a2a3 a4a5a6a7"));
    QVERIFY(hex->readOnly());
}

void tst_LWDocument::hexadecimalLinesHoldEightGroups()
{
    const QByteArray line = QByteArray(1, '\0') + QByteArray(31, '\xff');
    QCOMPARE(fileAt(fixtures->write("a.bin", line))->getContent().size(), 71);
    const QString twoLines = fileAt(fixtures->write("b.bin", line + "\xfe\xfd\xfc\xfb\xfa"))->getContent();
    QCOMPARE(twoLines.section(QLatin1Char('\n'), 1), QStringLiteral("fefdfcfb fa"));
    QVERIFY(twoLines.startsWith(QLatin1String("00ffffff ")));
    QCOMPARE(twoLines.indexOf(QLatin1Char('\n')), 72);
}

void tst_LWDocument::specificationIsChosenFromTheName()
{
    const auto specOf = [](const QString &name) { return fileAt(QStringLiteral("/nowhere/") + name)->specName(); };
    QCOMPARE(specOf(QStringLiteral("notes.coffee.md")), QStringLiteral("Literate"));
    QCOMPARE(specOf(QStringLiteral("notes.md")), QStringLiteral("Markdown"));
    QCOMPARE(specOf(QStringLiteral("SConstruct")), QStringLiteral("Python"));
    QCOMPARE(specOf(QStringLiteral("SCRIPT.PY")), QStringLiteral("Plain Text"));

    LWDefaults::shared()->setObject(QStringLiteral("LW_User_Extensions"),
                                    QVariantMap{{QStringLiteral("py"), QStringLiteral("Missing")},
                                                {QStringLiteral("md"), QStringLiteral("HTML")}});
    QCOMPARE(specOf(QStringLiteral("a.py")), QStringLiteral("Python"));
    QCOMPARE(specOf(QStringLiteral("a.md")), QStringLiteral("HTML"));
}

void tst_LWDocument::factoriesPlaceNodesInTheirFolder()
{
    LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->makeFolder("proj"));
    fixtures->write("proj/Untitled - 1");
    fixtures->write("proj/Untitled - 3");
    LWDocument::Ptr fresh = LWDocument::emptyFileInExistingDocument(group);
    QCOMPARE(fresh->label(), QStringLiteral("Untitled - 2"));
    QCOMPARE(fresh->fullPath(), fixtures->path("proj/Untitled - 2"));
    QCOMPARE(fresh->path(), QStringLiteral("PROJ"));
    QVERIFY(!fresh->saved());
    QVERIFY(!QFile::exists(fresh->fullPath()));
    QCOMPARE(fresh->specName(), QStringLiteral("Plain Text"));

    LWDocument::Ptr fromTemplate = LWDocument::fileFromTemplate(QStringLiteral("x.py"), QStringLiteral("pass"), QString());
    QCOMPARE(fromTemplate->specName(), QStringLiteral("Python"));
    QVERIFY(fromTemplate->isUntitled());
    QCOMPARE(LWDocument::create()->type(), quint64(LWDocument::Unset));
}

void tst_LWDocument::reorderCountsTheDropPositionBeforeRemoval()
{
    LWDocument::Ptr folder = LWDocument::filesGroup();
    for (const char *name : {"a", "b", "c", "d", "e"})
        folder->addChildDocument(LWDocument::emptyFileWithLabel(QString::fromLatin1(name)));
    folder->moveChildDocument(folder->childAtIndex(1), 4);
    QCOMPARE(labels(folder->children()), QStringList({"a", "c", "d", "b", "e"}));
    folder->moveChildDocument(folder->childAtIndex(4), 1);
    QCOMPARE(labels(folder->children()), QStringList({"a", "e", "c", "d", "b"}));
    QCOMPARE(folder->childAtIndex(1)->parent(), folder);
}

void tst_LWDocument::movingToAnotherParentMovesOnDisk()
{
    fixtures->write("proj/src/main.py", "main");
    fixtures->makeFolder("proj/docs");
    LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("proj"));
    LWDocument::Ptr main = group->childWithLabel(QStringLiteral("main.py"));
    LWDocument::Ptr docs = group->childWithLabel(QStringLiteral("docs"));
    QCOMPARE(main->path(), QStringLiteral("src"));

    main->moveToParent(docs, 0);
    QCOMPARE(docs->childAtIndex(0), main);
    QCOMPARE(main->fullPath(), fixtures->path("proj/docs/main.py"));
    QCOMPARE(main->path(), QStringLiteral("docs"));
    QCOMPARE(DocumentFixtures::read(main->fullPath()), QByteArray("main"));
    QVERIFY(!QFile::exists(fixtures->path("proj/src/main.py")));
    QCOMPARE(group->childWithLabel(QStringLiteral("src"))->noOfChildren(), 0u);

    docs->moveToParent(docs->childAtIndex(0), LWDocument::NotFound);
    QCOMPARE(docs->parent(), group);

    // Adopted outside files take this folder's path joined with their own label.
    const LWDocument::List outside{LWDocument::fileFromPath(fixtures->write("out/x.txt")),
                                   LWDocument::fileFromPath(fixtures->write("out/y.txt"))};
    docs->copyFilesToSelf(outside, 0);
    QCOMPARE(labels(docs->children()), QStringList({"x.txt", "y.txt", "main.py"}));
    QCOMPARE(outside[1]->path(), QStringLiteral("y.txt"));
    QCOMPARE(outside[1]->fullPath(), fixtures->path("proj/docs/y.txt"));
    QCOMPARE(outside[1]->parent(), docs);
}

void tst_LWDocument::filterKeepsFoldersOnTheWayAndFollowsChanges()
{
    fixtures->write("proj/lib/deep/needle.txt");
    fixtures->write("proj/lib/hay.txt");
    fixtures->write("proj/other.txt");
    LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("proj"));
    QCOMPARE(labels(group->filteredChildren(QStringLiteral("needle"))), QStringList({"lib"}));
    LWDocument::Ptr lib = group->childAtIndex(0, QStringLiteral("needle"));
    QCOMPARE(lib->noOfChildrenFiltered(QStringLiteral("needle")), 1u);
    QCOMPARE(group->noOfChildrenFiltered(QStringLiteral("Needle")), 0u);

    group->childWithLabel(QStringLiteral("needle.txt"))->setLabel(QStringLiteral("pin.txt"));
    QCOMPARE(group->noOfChildrenFiltered(QStringLiteral("needle")), 0u);
    group->childWithLabel(QStringLiteral("other.txt"))->addChildDocument(LWDocument::emptyFileWithLabel("needle 2"));
    QCOMPARE(labels(group->filteredChildren(QStringLiteral("needle"))), QStringList({"other.txt"}));
    QCOMPARE(group->noOfChildrenFiltered(QString()), 2u);
}

void tst_LWDocument::savedStateAndRemoteMappingLookAtChildren()
{
    fixtures->write("proj/sub/deeper/a.txt");
    fixtures->write("proj/.ftp-settings.json", "{}");
    LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("proj"));
    LWDocument::Ptr sub = group->childWithLabel(QStringLiteral("sub"));
    QVERIFY(sub->unsavedChanges());
    group->childWithLabel(QStringLiteral("a.txt"))->setSaved(false);
    QVERIFY(!sub->unsavedChanges());
    QVERIFY(!group->unsavedChanges());

    QVERIFY(group->isFTPMapped());
    QVERIFY(!sub->isFTPMapped());
    QVERIFY(!group->childWithLabel(QStringLiteral(".ftp-settings.json"))->isFTPMapped());
}

void tst_LWDocument::renamingUntitledChangesOnlyTheNode()
{
    RecordingShell shell;
    LWDocumentManager manager;
    LWDocumentManager::setShared(&manager);
    LWDocument::Ptr untitled = LWDocument::emptyFile();
    manager.switchToDoc(untitled);
    shell.calls.clear();

    untitled->renameWithLabel(QStringLiteral("index.html"));
    QCOMPARE(untitled->label(), QStringLiteral("index.html"));
    QCOMPARE(untitled->specName(), QStringLiteral("HTML"));
    QVERIFY(untitled->isUntitled());
    QCOMPARE(shell.specPopupTitle, QStringLiteral("HTML"));
    QCOMPARE(shell.calls.first(), QStringLiteral("tab title index.html"));
    QVERIFY(!shell.calls.filter(QStringLiteral("script lw.setState({\"content\":\"\",\"mode\":\"html\",\"readOnly\":false,"
                                               "\"tag\":")).isEmpty());
    QVERIFY(QDir(fixtures->root()).entryList(QDir::Files).isEmpty());
    LWDocumentManager::setShared(nullptr);
}

void tst_LWDocument::renamingOnDiskKeepsThePath()
{
    fixtures->write("proj/src/old.txt", "kept");
    LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("proj"));
    LWDocument::Ptr file = group->childWithLabel(QStringLiteral("old.txt"));
    file->renameWithLabel(QStringLiteral("new.py"));
    QCOMPARE(file->fullPath(), fixtures->path("proj/src/new.py"));
    QCOMPARE(file->path(), QStringLiteral("src"));
    QCOMPARE(file->specName(), QStringLiteral("Python"));
    QCOMPARE(DocumentFixtures::read(file->fullPath()), QByteArray("kept"));
    QVERIFY(!QFile::exists(fixtures->path("proj/src/old.txt")));
    QCOMPARE(file->icon(), LWDocumentIcons::regularFile());

    // A renamed folder keeps the folder icon.
    LWDocument::Ptr folder = group->childWithLabel(QStringLiteral("src"));
    folder->renameWithLabel(QStringLiteral("sources"));
    QVERIFY(QFileInfo(fixtures->path("proj/sources")).isDir());
    QCOMPARE(folder->icon(), LWDocumentIcons::folder());
}

void tst_LWDocument::jsonFormsAndCopy()
{
    LWDocument::Ptr file = LWDocument::fileWithLabel(QStringLiteral("a.py"), QStringLiteral("x = \"1\"\n"));
    file->updateSpecFromPath(QStringLiteral("a.py"));
    QCOMPARE(file->toJson(), QStringLiteral("{\"content\":\"x = \\\"1\\\"\\n\",\"mode\":\"python\",\"readOnly\":false}"));

    file->updateFromJson(QStringLiteral("/* state */ {\"content\": \"edited\", \"cursor\": 3}"));
    QCOMPARE(file->content(), std::optional<QString>(QStringLiteral("edited")));
    // No text in the state (no answer, not an object) keeps the text known.
    for (const QString &state : {QString(), QStringLiteral("[1, 2]"), QStringLiteral("{\"content\": 5}")}) {
        file->updateFromJson(state);
        QCOMPARE(file->content(), std::optional<QString>(QStringLiteral("edited")));
    }

    LWDocument::Ptr folder = LWDocument::filesGroup();
    folder->addChildDocument(file);
    folder->setSpecName(QStringLiteral("Python"));
    const LWDocument::Ptr copy = folder->copy();
    QCOMPARE(copy->children(), folder->children());
    QCOMPARE(copy->specName(), QStringLiteral("Plain Text"));
    QVERIFY(copy->identity() != folder->identity());
    QVERIFY(copy->identity().startsWith(QStringLiteral("0x")));
    const LWDocument::Ptr fileCopy = file->copy();
    QVERIFY(!fileCopy->icon().isNull());
    QVERIFY(fileCopy->dimmedIcon().isNull());
    QCOMPARE(file->icon().size(), QSize(15, 15));
}

// The editor keeps each document's session under its identity: a document
// made where a closed one lay in memory must not take over its undo history.
void tst_LWDocument::identityIsNeverReused()
{
    QSet<QString> seen;
    for (int made = 0; made < 100; ++made) {
        const LWDocument::Ptr node = LWDocument::fileWithLabel(QStringLiteral("a.txt"), QStringLiteral("a"));
        QVERIFY(!seen.contains(node->identity()));
        seen.insert(node->identity());
    }
}

void tst_LWDocument::archiveKeepsTheSubtreeAndRefusesDamage()
{
    fixtures->write("proj/sub/a.py", "A");
    LWDocument::Ptr group = LWDocument::groupFromPath(fixtures->path("proj"));
    LWDocument::Ptr file = group->childWithLabel(QStringLiteral("a.py"));
    file->setContent(QStringLiteral("edited"));
    file->setSaved(false);
    group->addChildDocument(LWDocument::emptyFile());

    const QByteArray data = LWDocumentArchive::archive(*group);
    const LWDocument::Ptr copy = LWDocumentArchive::unarchive(data);
    QVERIFY(copy);
    QCOMPARE(labels(copy->children()), QStringList({"sub", "Untitled"}));
    const LWDocument::Ptr copiedFile = copy->childWithFullPath(file->fullPath());
    QVERIFY(copiedFile && copiedFile != file);
    QCOMPARE(copiedFile->content(), file->content());
    QCOMPARE(copiedFile->specName(), QStringLiteral("Python"));
    QCOMPARE(copiedFile->path(), QStringLiteral("sub"));
    QVERIFY(!copiedFile->saved());
    QCOMPARE(copiedFile->parent()->parent(), copy);
    QCOMPARE(copiedFile->icon().size(), QSize(15, 15));
    QVERIFY(copiedFile->dimmedIcon().isNull());
    QVERIFY(!copy->childAtIndex(1)->content());
    QVERIFY(!copy->parent());

    QVERIFY(!LWDocumentArchive::unarchive(data.left(data.size() / 2)));
    QVERIFY(!LWDocumentArchive::unarchive(QByteArray("not an archive")));
}

void tst_LWDocument::editorTagsSpareUnchangedText()
{
    const LWDocument::Ptr file = LWDocument::fileWithLabel(QStringLiteral("a.txt"), QStringLiteral("text"));
    const auto sent = [&file] { return QJsonDocument::fromJson(file->toEditorJson().toUtf8()).object(); };
    TextOffers::setServed(true);
    const QJsonObject first = sent();
    const QString tag = first.value(QStringLiteral("tag")).toString();
    QCOMPARE(first.value(QStringLiteral("content")).toString(), QStringLiteral("text"));
    // Sent again, the text the page may hold goes as a reference only.
    const QJsonObject again = sent();
    QCOMPARE(again.value(QStringLiteral("tag")).toString(), tag);
    const QString url = again.value(QStringLiteral("content")).toObject().value(QStringLiteral("url")).toString();
    QCOMPARE(TextOffers::take(url.section(QLatin1Char('/'), -1)), std::optional<QString>(QStringLiteral("text")));
    TextOffers::setServed(false);
    QCOMPARE(file->editorStateQuery(), QStringLiteral("lw.getState('%1')").arg(tag));

    // The page still holds the node's text: the node keeps its own.
    file->updateFromJson(QStringLiteral("{\"tag\": \"%1\", \"mode\": \"text\"}").arg(tag));
    QCOMPARE(file->content(), std::optional<QString>(QStringLiteral("text")));
    // Edited text comes with the page's tag for it.
    file->updateFromJson(QStringLiteral("{\"content\": \"edited\", \"tag\": \"p1-1:3\"}"));
    QCOMPARE(file->content(), std::optional<QString>(QStringLiteral("edited")));
    QCOMPARE(file->editorStateQuery(), QStringLiteral("lw.getState('p1-1:3')"));
    // A page that could not report the text loses nothing.
    file->updateFromJson(QStringLiteral("{\"tag\": \"unavailable\"}"));
    QCOMPARE(file->content(), std::optional<QString>(QStringLiteral("edited")));

    // Copies and text set by the shell get tags of their own.
    QVERIFY(file->copy()->editorStateQuery() != file->editorStateQuery());
    file->setContent(QStringLiteral("it's new"));
    QCOMPARE(file->editorStateQuery(), QStringLiteral("lw.getState()"));
    QVERIFY(sent().value(QStringLiteral("tag")).toString() != QStringLiteral("p1-1:3"));
    file->updateFromJson(QStringLiteral("{\"content\": \"x\", \"tag\": \"it's\"}"));
    QCOMPARE(file->editorStateQuery(), QStringLiteral("lw.getState('it\\'s')"));
}

void tst_LWDocument::savingWritesTheEditorTextAndKeepsPermissions()
{
    RecordingShell shell;
    const QString path = fixtures->write("script.sh", "old");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    LWDocument::Ptr file = fileAt(path);
    file->setSaved(false);
    shell.scriptAnswer = QStringLiteral("{\"content\": \"new text\"}");
    file->save();
    QCOMPARE(DocumentFixtures::read(path), QByteArray("new text"));
    QVERIFY(QFileInfo(path).permissions() & QFile::ExeOwner);
    QVERIFY(file->saved());
    QCOMPARE(shell.editorScripts, QStringList({"lw.getState()", "$Events.exec('documentSaved');"}));
    const QString link = fixtures->path("link.sh");
    QVERIFY(QFile::link(path, link));
    LWDocument::Ptr linked = fileAt(link);
    linked->setContent(QStringLiteral("through the link"));
    linked->saveWithoutState();
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(DocumentFixtures::read(path), QByteArray("through the link"));
    linked->setContent(QStringLiteral("new text"));
    linked->saveWithoutState();

    LWDocument::Ptr binary = fileAt(fixtures->write("blob.bin", "\xff\xfe"));
    binary->getContent();
    binary->saveWithoutState();
    QCOMPARE(DocumentFixtures::read(binary->fullPath()), QByteArray("\xff\xfe"));

    shell.scriptAnswer = QStringLiteral("not json");
    file->save();
    QCOMPARE(DocumentFixtures::read(path), QByteArray("new text"));

    LWDefaults::shared()->setInteger(QStringLiteral("LW_DefaultEncoding"), 5);
    shell.scriptAnswer = QStringLiteral("{\"content\": \"caf\u00e9 \u20ac\"}");
    file->save();
    QCOMPARE(DocumentFixtures::read(path), QByteArray("new text"));
    shell.scriptAnswer = QStringLiteral("{\"content\": \"caf\u00e9\"}");
    file->save();
    QCOMPARE(DocumentFixtures::read(path), QByteArray("caf\xe9"));
}

void tst_LWDocument::interruptedSaveLeavesOldOrNewContent()
{
    const QByteArray oldContent(8 << 20, 'o');
    const QString path = fixtures->write("big.txt", oldContent);
    for (int attempt = 0; attempt < 6; ++attempt) {
        const pid_t child = fork();
        if (child == 0) {
            LWDocument::Ptr file = fileAt(path);
            file->setContent(QString(16 << 20, QLatin1Char('n')));
            file->saveWithoutState();
            _exit(0);
        }
        QThread::usleep(2000 + attempt * 3000);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const QByteArray after = DocumentFixtures::read(path);
        const bool isOld = after == oldContent;
        const bool isNew = after.size() == (16 << 20) && after.count('n') == after.size();
        QVERIFY2(isOld || isNew, qPrintable(QStringLiteral("mixed content of %1 bytes").arg(after.size())));
        if (isNew)
            fixtures->write("big.txt", oldContent);
    }
}

void tst_LWDocument::failedSaveIsToldAndKeepsTheChanges()
{
    RecordingShell shell;
    const auto expectFailure = [&shell](const LWDocument::Ptr &file, bool withState) {
        file->setSaved(false);
        shell.alerts.clear();
        shell.editorScripts.clear();
        QVERIFY(!(withState ? file->save() : file->saveWithoutState()));
        QVERIFY(!file->saved());
        QCOMPARE(shell.alerts.size(), 1);
        QCOMPARE(shell.alerts[0].first, QStringLiteral("Could not save \u201c%1\u201d").arg(file->label()));
        QVERIFY(!shell.editorScripts.contains(QStringLiteral("$Events.exec('documentSaved');")));
    };

    LWDocument::Ptr inGoneFolder = fileAt(fixtures->write("gone/a.txt", "old"));
    inGoneFolder->setContent(QStringLiteral("edited"));
    QVERIFY(QDir(fixtures->path("gone")).removeRecursively());
    expectFailure(inGoneFolder, false);
    QVERIFY(shell.alerts[0].second.contains(inGoneFolder->fullPath()));
    QCOMPARE(inGoneFolder->content(), std::optional<QString>(QStringLiteral("edited")));

    LWDocument::Ptr folder = fileAt(fixtures->makeFolder("folder.txt"));
    folder->setContent(QStringLiteral("text"));
    expectFailure(folder, false);
    QVERIFY(QFileInfo(folder->fullPath()).isDir());

    // A page that gives no answer: the text last known is saved, and without
    // one the save fails and the file stays as it was.
    const QString path = fixtures->write("b.txt", "on disk");
    LWDocument::Ptr known = fileAt(path);
    known->setContent(QStringLiteral("last known"));
    shell.scriptAnswer = QString();
    QVERIFY(known->save());
    QCOMPARE(DocumentFixtures::read(path), QByteArray("last known"));
    expectFailure(fileAt(fixtures->write("c.txt", "on disk")), true);
    QCOMPARE(DocumentFixtures::read(fixtures->path("c.txt")), QByteArray("on disk"));
}

// A disk that fills up during the save is played by a file size limit in a
// child process: writes past it fail as they would on a full disk.
void tst_LWDocument::fullDiskLeavesTheOldFile()
{
    const QByteArray oldContent(1000, 'o');
    const QString path = fixtures->write("full/small.txt", oldContent);
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        RecordingShell shell;
        LWDocument::Ptr file = fileAt(path);
        file->setContent(QString(10000, QLatin1Char('n')));
        file->setSaved(false);
        const bool saved = file->saveWithoutState();
        _exit((saved ? 1 : 0) | (file->saved() ? 2 : 0) | (shell.alerts.size() != 1 ? 4 : 0));
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
    QCOMPARE(DocumentFixtures::read(path), oldContent);
    QCOMPARE(QDir(fixtures->path("full")).entryList(QDir::Files | QDir::Hidden), QStringList({"small.txt"}));
}

void tst_LWDocument::unchangedTextIsWrittenBackAsRead_data()
{
    QTest::addColumn<qint64>("encoding");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("afterAppendingX");
    QTest::addColumn<QString>("shown"); // empty: not compared
    QTest::newRow("UTF-8 with mark") << qint64(4) << QByteArray("\xEF\xBB\xBFh\xC3\xA9")
                                     << QByteArray("\xEF\xBB\xBFh\xC3\xA9x") << QStringLiteral("hé");
    QTest::newRow("UTF-16 big-endian by its mark") << qint64(10) << QByteArray("\xFE\xFF\x00h\x00\xE9", 6)
                                                   << QByteArray("\xFE\xFF\x00h\x00\xE9\x00x", 8)
                                                   << QStringLiteral("hé");
    QTest::newRow("UTF-16 with a lone surrogate and a cut unit")
        << qint64(0x94000100) << QByteArray("\xFF\xFEh\x00\x00\xD8i\x00!", 9)
        << QByteArray("\xFF\xFEh\x00\x00\xD8i\x00x\x00", 10) << QString();
    QTest::newRow("UTF-32 past the last code point")
        << qint64(0x9c000100) << QByteArray("h\x00\x00\x00\x00\x00\x11\x00", 8) << QByteArray() << QString();
    QTest::newRow("Windows-1252") << qint64(12) << QByteArray("\x93hi\x94 \x80") << QByteArray("\x93hi\x94 \x80x")
                                  << QStringLiteral("“hi” €");
    QTest::newRow("Shift_JIS") << qint64(8) << QByteArray("\x82\xa0") << QByteArray("\x82\xa0x") << QStringLiteral("あ");
    QTest::newRow("GB18030") << qint64(0x80000632) << QByteArray("\xc4\xe3") << QByteArray("\xc4\xe3x")
                             << QStringLiteral("你");
    QTest::newRow("Latin-1 file while UTF-8 is preferred")
        << qint64(4) << QByteArray("caf\xe9") << QByteArray("caf\xe9x") << QStringLiteral("café");
    QTest::newRow("UTF-16 file by its mark while UTF-8 is preferred")
        << qint64(4) << QByteArray("\xFF\xFEh\x00", 4) << QByteArray("\xFF\xFEh\x00x\x00", 6) << QStringLiteral("h");
    QTest::newRow("unsupported number falls back to UTF-8")
        << qint64(999) << QByteArray("h\xC3\xA9") << QByteArray("h\xC3\xA9x") << QStringLiteral("hé");
}

void tst_LWDocument::unchangedTextIsWrittenBackAsRead()
{
    QFETCH(qint64, encoding);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, afterAppendingX);
    QFETCH(QString, shown);
    RecordingShell shell;
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DefaultEncoding"), encoding);
    const QString path = fixtures->write("form.txt", bytes);
    LWDocument::Ptr file = fileAt(path);
    const QString text = file->getContent();
    QVERIFY(!file->readOnly());
    if (!shown.isEmpty())
        QCOMPARE(text, shown);
    QVERIFY(file->saveWithoutState());
    QCOMPARE(DocumentFixtures::read(path), bytes);
    if (afterAppendingX.isEmpty())
        return;
    file->setContent(text + QLatin1Char('x'));
    QVERIFY(file->saveWithoutState());
    QCOMPARE(DocumentFixtures::read(path), afterAppendingX);
}

QTEST_GUILESS_MAIN(tst_LWDocument)
#include "tst_LWDocument.moc"
