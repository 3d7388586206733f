#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "support/OutlineRows.h"
#include "documents/ui/TabBarView.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

// Typed text in the real window, by real key presses: the untitled document
// shown at start becomes unsaved, saves through the save dialog and is never
// replaced by a click in the sidebar.
class TestUnsavedWork : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void typingIntoTheUntitledDocumentMarksItUnsaved();
    void aSidebarClickNeverReplacesIt();
    void bothQuitPathsAskForIt();
    void controlSSavesItThroughTheSaveDialog();

private:
    LWDocument::Ptr current() const { return window->delegate->documentManager()->currentDocument(); }

    QTemporaryDir folder;
    std::unique_ptr<WindowDriver> window;
};

void TestUnsavedWork::initTestCase()
{
    window = std::make_unique<WindowDriver>();
    QVERIFY(window->start());
    QVERIFY(current());
}

void TestUnsavedWork::cleanupTestCase()
{
    window.reset();
}

void TestUnsavedWork::typingIntoTheUntitledDocumentMarksItUnsaved()
{
    const LWDocument::Ptr untitled = current();
    QVERIFY(untitled->isUntitled());
    // The editor has the keyboard from the start.
    QTRY_COMPARE(QApplication::focusWidget(), window->editorWidget());
    QVERIFY(window->typeKeys(QStringLiteral("typed")));
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("typed"));
    QTRY_VERIFY(!untitled->saved());
    QVERIFY(!window->delegate->documentManager()->documentTree().unsavedChanges());
}

void TestUnsavedWork::aSidebarClickNeverReplacesIt()
{
    const LWDocument::Ptr untitled = current();
    const QString otherPath = folder.filePath(QStringLiteral("other.txt"));
    QFile other(otherPath);
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("other text");
    other.close();
    const LWDocument::Ptr otherDocument = LWDocument::fileFromPath(otherPath);
    window->delegate->documentManager()->documentTree().filesGroup()->addChildDocument(otherDocument);
    window->delegate->reloadOutline();

    WorkspaceOutline *outline = window->delegate->window()->outline();
    QModelIndex row;
    QTRY_VERIFY((row = OutlineRows::at(outline, QStringLiteral("FILES/other.txt"))).isValid());
    outline->scrollTo(row);
    QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, outline->visualRect(row).center());
    QTRY_COMPARE(current(), otherDocument);
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("other text"));

    TabBarView *tabs = window->delegate->window()->tabs();
    QCOMPARE(tabs->count(), 2);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRectFromIndex(0).center());
    QTRY_COMPARE(current(), untitled);
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("typed"));
    QVERIFY(!untitled->saved());
}

void TestUnsavedWork::bothQuitPathsAskForIt()
{
    auto *quit = window->delegate->window()->findChild<QAction *>(QStringLiteral("quitAction"));
    quit->trigger();
    QVERIFY(window->answer(QStringLiteral("No")));
    QVERIFY(!window->delegate->window()->close());
    QVERIFY(window->answer(QStringLiteral("No")));
    QVERIFY(window->delegate->window()->isVisible());
}

void TestUnsavedWork::controlSSavesItThroughTheSaveDialog()
{
    const LWDocument::Ptr untitled = current();
    const QString target = folder.filePath(QStringLiteral("kept.txt"));
    QVERIFY(!untitled->saved());
    window->pressSave();
    QFileDialog *dialog = nullptr;
    QTRY_VERIFY((dialog = window->delegate->window()->findChild<QFileDialog *>()) && dialog->isVisible());
    dialog->selectFile(target);
    static_cast<QDialog *>(dialog)->accept();
    QTRY_VERIFY(untitled->saved());
    QCOMPARE(untitled->fullPath(), target);
    QFile written(target);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("typed"));
}

LW_WEB_TEST_MAIN(TestUnsavedWork)
#include "tst_UnsavedWork.moc"
