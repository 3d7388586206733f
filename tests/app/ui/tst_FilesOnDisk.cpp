#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWDocumentWatcher.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

// Files that other programs change while they are open in the real window:
// the editor follows a clean document, asks before an unsaved one is
// replaced, never silently writes over a changed or removed file, never
// writes text over an image, and opens a path that does not exist yet as
// an editable document.
class TestFilesOnDisk : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void aCleanDocumentTakesTheFilesNewText();
    void anUnsavedDocumentAsksToKeepOrLoad();
    void aRemovedFileIsSavedAgainOnlyWhenAsked();
    void imagesAreNeverSavedAsText();
    void aPathThatDoesNotExistOpensEditable();
    void aFailedSaveIsToldAndKeepsTheChanges();
    void anEditedFileKeepsItsByteOrderMark();

private:
    LWDocument::Ptr open(const QString &path);
    QString editorText() { return window->page(QStringLiteral("lw.editor.getValue()")); }
    void writeAsAnotherProgram(const QByteArray &bytes);
    QByteArray onDisk(const QString &path) const;

    QTemporaryDir folder;
    QString watchedPath;
    std::unique_ptr<WindowDriver> window;
};

void TestFilesOnDisk::initTestCase()
{
    window = std::make_unique<WindowDriver>();
    QVERIFY(window->start());
    watchedPath = folder.filePath(QStringLiteral("watched.txt"));
    writeAsAnotherProgram("one");
}

void TestFilesOnDisk::cleanupTestCase()
{
    window.reset();
}

LWDocument::Ptr TestFilesOnDisk::open(const QString &path)
{
    LWDocumentManager *manager = window->delegate->documentManager();
    LWDocument::Ptr document = manager->documentTree().documentWithFullPath(path);
    if (!document) {
        document = LWDocument::fileFromPath(path);
        manager->documentTree().filesGroup()->addChildDocument(document);
    }
    manager->switchToDoc(document);
    return document;
}

void TestFilesOnDisk::writeAsAnotherProgram(const QByteArray &bytes)
{
    // A later modification time than the previous write, as any real edit has.
    QTest::qWait(20);
    QFile file(watchedPath);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QByteArray TestFilesOnDisk::onDisk(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestFilesOnDisk::aCleanDocumentTakesTheFilesNewText()
{
    const LWDocument::Ptr document = open(watchedPath);
    QTRY_COMPARE(editorText(), QStringLiteral("one"));
    writeAsAnotherProgram("two");
    QTRY_COMPARE_WITH_TIMEOUT(editorText(), QStringLiteral("two"), 5000);
    QVERIFY(document->saved());
    QVERIFY(!window->question());
}

void TestFilesOnDisk::anUnsavedDocumentAsksToKeepOrLoad()
{
    const LWDocument::Ptr document = open(watchedPath);
    window->page(QStringLiteral("lw.editor.navigateFileEnd(); lw.editor.focus(); ''"));
    QVERIFY(window->typeKeys(QStringLiteral("!")));
    QTRY_VERIFY(!document->saved());
    writeAsAnotherProgram("theirs");
    QVERIFY(window->answer(QStringLiteral("Load Theirs")));
    QTRY_COMPARE(editorText(), QStringLiteral("theirs"));
    QVERIFY(document->saved());

    QVERIFY(window->typeKeys(QStringLiteral("?")));
    QTRY_VERIFY(!document->saved());
    writeAsAnotherProgram("again theirs");
    QVERIFY(window->answer(QStringLiteral("Keep Mine")));
    const QString mine = editorText();
    QVERIFY(mine.contains(QLatin1Char('?')));
    window->pressSave();  // the user has chosen: no second question
    QTRY_VERIFY(document->saved());
    QCOMPARE(QString::fromUtf8(onDisk(watchedPath)), mine);
}

void TestFilesOnDisk::aRemovedFileIsSavedAgainOnlyWhenAsked()
{
    const LWDocument::Ptr document = open(watchedPath);
    QTRY_VERIFY(!editorText().isEmpty());
    const QString text = editorText();
    QVERIFY(QFile::remove(watchedPath));
    QTRY_VERIFY_WITH_TIMEOUT(!document->saved(), 5000);

    window->pressSave();
    QVERIFY(window->answer(QStringLiteral("Cancel")));
    QTest::qWait(300);
    QVERIFY(!QFile::exists(watchedPath));
    QVERIFY(!document->saved());

    window->pressSave();
    QVERIFY(window->answer(QStringLiteral("Save")));
    QTRY_VERIFY(document->saved());
    QCOMPARE(QString::fromUtf8(onDisk(watchedPath)), text);
}

void TestFilesOnDisk::imagesAreNeverSavedAsText()
{
    open(watchedPath);
    QTRY_VERIFY(!editorText().isEmpty());
    const QString picturePath = folder.filePath(QStringLiteral("picture.png"));
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(picturePath));
    const QByteArray bytes = onDisk(picturePath);

    const LWDocument::Ptr image = open(picturePath);
    window->pressSave();
    QTest::qWait(300);
    QCOMPARE(onDisk(picturePath), bytes);
    QVERIFY(image->saved());
    // Leaving the picture keeps the text document's text its own.
    open(watchedPath);
    QTRY_COMPARE(editorText(), QString::fromUtf8(onDisk(watchedPath)));
}

void TestFilesOnDisk::aPathThatDoesNotExistOpensEditable()
{
    const QString path = folder.filePath(QStringLiteral("new-file.py"));
    const LWDocument::Ptr document = open(path);
    QTRY_COMPARE(window->page(QStringLiteral("String(lw.editor.getReadOnly())")), QStringLiteral("false"));
    QVERIFY(!QFile::exists(path));
    window->page(QStringLiteral("lw.editor.focus(); ''"));
    QVERIFY(window->typeKeys(QStringLiteral("print(1)")));
    QTRY_VERIFY(!document->saved());
    window->pressSave();
    QTRY_VERIFY(document->saved());
    QCOMPARE(onDisk(path), QByteArray("print(1)"));
}

void TestFilesOnDisk::aFailedSaveIsToldAndKeepsTheChanges()
{
    QDir(folder.path()).mkdir(QStringLiteral("gone"));
    const QString path = folder.filePath(QStringLiteral("gone/note.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("note");
    file.close();
    const LWDocument::Ptr document = open(path);
    QTRY_COMPARE(editorText(), QStringLiteral("note"));
    QVERIFY(QDir(folder.filePath(QStringLiteral("gone"))).removeRecursively());
    window->page(QStringLiteral("lw.editor.navigateFileEnd(); lw.editor.focus(); ''"));
    QVERIFY(window->typeKeys(QStringLiteral("s")));
    QTRY_VERIFY(!document->saved());

    window->pressSave();
    QVERIFY(window->answer(QStringLiteral("Save")));  // it was removed: save it again?
    QMessageBox *told = window->question();
    QVERIFY(told);
    QCOMPARE(told->text(), QStringLiteral("Could not save “note.txt”"));
    QVERIFY(window->answer(QStringLiteral("OK")));
    QVERIFY(!document->saved());
    QCOMPARE(editorText(), QStringLiteral("notes"));
    QVERIFY(!window->delegate->documentManager()->documentTree().unsavedChanges());
}

void TestFilesOnDisk::anEditedFileKeepsItsByteOrderMark()
{
    const QString path = folder.filePath(QStringLiteral("marked.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\xEF\xBB\xBF" "abc");
    file.close();
    const LWDocument::Ptr document = open(path);
    QTRY_COMPARE(editorText(), QStringLiteral("abc"));
    window->page(QStringLiteral("lw.editor.navigateFileEnd(); lw.editor.focus(); ''"));
    QVERIFY(window->typeKeys(QStringLiteral("d")));
    QTRY_VERIFY(!document->saved());
    window->pressSave();
    QTRY_VERIFY(document->saved());
    QCOMPARE(onDisk(path), QByteArray("\xEF\xBB\xBF" "abcd"));
}

LW_WEB_TEST_MAIN(TestFilesOnDisk)
#include "tst_FilesOnDisk.moc"
