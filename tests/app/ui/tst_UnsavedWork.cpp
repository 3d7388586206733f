#include "app/ui/DocumentTabs.h"
#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "editor/ui/LWWebViewController.h"

#include <QAbstractButton>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebEngineView>
#include <QtTest>

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
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    LWDocument::Ptr current() const { return delegate->documentManager()->currentDocument(); }
    void typeKeys(const QString &text);
    QWidget *editorWidget() const;
    // Presses the button of the window's question once it shows.
    bool answer(const QString &button);

    QTemporaryDir folder;
    std::unique_ptr<LWAppDelegate> delegate;
};

void TestUnsavedWork::initTestCase()
{
    delegate = std::make_unique<LWAppDelegate>(QStringList());
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    QTRY_VERIFY_WITH_TIMEOUT(current(), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("typeof core")), QStringLiteral("object"), 20000);
    delegate->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(delegate->window()));
}

void TestUnsavedWork::cleanupTestCase()
{
    delegate.reset();
}

void TestUnsavedWork::typeKeys(const QString &text)
{
    QTest::keyClicks(editorWidget(), text);
}

QWidget *TestUnsavedWork::editorWidget() const
{
    QWebEngineView *view = delegate->webView()->view();
    return view->focusProxy() ? view->focusProxy() : view;
}

void TestUnsavedWork::typingIntoTheUntitledDocumentMarksItUnsaved()
{
    const LWDocument::Ptr untitled = current();
    QVERIFY(untitled->isUntitled());
    // The editor has the keyboard from the start.
    QTRY_COMPARE(QApplication::focusWidget(), editorWidget());
    typeKeys(QStringLiteral("typed"));
    QTRY_COMPARE(page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("typed"));
    QTRY_VERIFY(!untitled->saved());
    QVERIFY(!delegate->documentManager()->documentTree().unsavedChanges());
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
    delegate->documentManager()->documentTree().filesGroup()->addChildDocument(otherDocument);
    delegate->reloadOutline();

    WorkspaceOutline *outline = delegate->window()->outline();
    QTreeWidgetItem *row = nullptr;
    QTRY_VERIFY((row = outline->findItems(QStringLiteral("other.txt"), Qt::MatchStartsWith | Qt::MatchRecursive).value(0)));
    outline->scrollToItem(row);
    QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, outline->visualItemRect(row).center());
    QTRY_COMPARE(current(), otherDocument);
    QTRY_COMPARE(page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("other text"));

    DocumentTabs *tabs = delegate->window()->tabs();
    QCOMPARE(tabs->count(), 2);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
    QTRY_COMPARE(current(), untitled);
    QTRY_COMPARE(page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("typed"));
    QVERIFY(!untitled->saved());
}

void TestUnsavedWork::bothQuitPathsAskForIt()
{
    auto *quit = delegate->window()->findChild<QAction *>(QStringLiteral("quitAction"));
    quit->trigger();
    QVERIFY(answer(QStringLiteral("No")));
    QVERIFY(!delegate->window()->close());
    QVERIFY(answer(QStringLiteral("No")));
    QVERIFY(delegate->window()->isVisible());
}

void TestUnsavedWork::controlSSavesItThroughTheSaveDialog()
{
    const LWDocument::Ptr untitled = current();
    const QString target = folder.filePath(QStringLiteral("kept.txt"));
    // The window is active again once the quit question has gone.
    delegate->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(delegate->window()));
    QVERIFY(!untitled->saved());
    QTest::keyClick(editorWidget(), Qt::Key_S, Qt::ControlModifier);
    QFileDialog *dialog = nullptr;
    QTRY_VERIFY((dialog = delegate->window()->findChild<QFileDialog *>()) && dialog->isVisible());
    dialog->selectFile(target);
    static_cast<QDialog *>(dialog)->accept();
    QTRY_VERIFY(untitled->saved());
    QCOMPARE(untitled->fullPath(), target);
    QFile written(target);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("typed"));
}

bool TestUnsavedWork::answer(const QString &button)
{
    QMessageBox *box = nullptr;
    for (int waited = 0; waited < 5000 && !(box && box->isVisible()); waited += 50) {
        QTest::qWait(50);
        box = delegate->window()->findChild<QMessageBox *>();
    }
    if (!box)
        return false;
    for (QAbstractButton *candidate : box->buttons()) {
        if (candidate->text() == button) {
            candidate->click();
            delete box;
            return true;
        }
    }
    return false;
}

QTEST_MAIN(TestUnsavedWork)
#include "tst_UnsavedWork.moc"
