#include "app/LWDefaults.h"
#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/ui/TabBarView.h"
#include "support/WebTestMain.h"

#include <QAbstractButton>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// The File menu of the real window on the real editor page, started with a
// file named on the command line.
class TestFileMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void opensTheCommandLineFile();
    void saveWritesTheTypedText();
    void newAddsUntitledDocuments();
    void quitAndCloseButtonAskWhileSomethingIsUnsaved();

private:
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    LWDocument::Ptr current() const { return delegate->documentManager()->currentDocument(); }
    LWDocument::Ptr files() const { return delegate->documentManager()->documentTree().filesGroup(); }
    void trigger(const char *action);
    void type(const QString &text);
    // Waits for the window's question with this title and presses the button.
    void answer(const QString &title, const QString &button);

    QTemporaryDir folder;
    QString path;
    std::unique_ptr<LWAppDelegate> delegate;
};

void TestFileMenu::initTestCase()
{
    path = folder.filePath(QStringLiteral("greeting.py"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("print('hello')\n");
    file.close();
    delegate = std::make_unique<LWAppDelegate>(QStringList{path});
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    QTRY_VERIFY_WITH_TIMEOUT(current() && current()->fullPath() == path, 20000);
}

void TestFileMenu::cleanupTestCase()
{
    delegate.reset();
}

void TestFileMenu::trigger(const char *action)
{
    auto *item = delegate->window()->findChild<QAction *>(QLatin1String(action));
    QVERIFY2(item, action);
    item->trigger();
}

void TestFileMenu::type(const QString &text)
{
    page(QStringLiteral("lw.editor.setValue('%1'); ''").arg(text));
    QTRY_VERIFY(!current()->saved());
}

void TestFileMenu::answer(const QString &title, const QString &button)
{
    QMessageBox *box = nullptr;
    QTRY_VERIFY((box = delegate->window()->findChild<QMessageBox *>()) && box->isVisible());
    QCOMPARE(box->text(), title);
    const QList<QAbstractButton *> buttons = box->buttons();
    const auto pressed = std::find_if(buttons.begin(), buttons.end(),
                                      [&](QAbstractButton *b) { return b->text() == button; });
    QVERIFY(pressed != buttons.end());
    (*pressed)->click();
    delete box;
}

void TestFileMenu::opensTheCommandLineFile()
{
    QCOMPARE(delegate->window()->menuBar()->actions().first()->text(), QStringLiteral("File"));
    QTRY_COMPARE(page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("print('hello')\n"));
    QVERIFY(delegate->window()->windowTitle().startsWith(QLatin1String("greeting.py")));
    TabBarView *tabs = delegate->window()->tabs();
    QCOMPARE(tabs->selectedTab()->title(), QStringLiteral("greeting.py"));
}

void TestFileMenu::saveWritesTheTypedText()
{
    type(QStringLiteral("print(\\'saved\\')\\n"));
    trigger("saveAction");
    QVERIFY(current()->saved());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("print('saved')\n"));
}

void TestFileMenu::newAddsUntitledDocuments()
{
    const std::size_t before = files()->children().size();
    trigger("newAction");
    QTRY_COMPARE(files()->children().size(), before + 1);
    QTRY_COMPARE(current(), files()->children().back());
    QVERIFY(current()->isUntitled());
    QVERIFY(current()->label().startsWith(QLatin1String("Untitled")));
    QCOMPARE(delegate->window()->windowTitle(), current()->label());
    QCOMPARE(page(QStringLiteral("lw.editor.getValue()")), QString());

    auto *templates = delegate->window()->findChild<QMenu *>(QStringLiteral("templatesMenu"));
    QVERIFY(templates && !templates->isEmpty());
    QAction *fromTemplate = templates->actions().first()->menu()->actions().first();
    fromTemplate->trigger();
    QTRY_COMPARE(files()->children().size(), before + 2);
    QTRY_COMPARE(current(), files()->children().back());
    QVERIFY(current()->label().startsWith(fromTemplate->text()));
    QVERIFY(!page(QStringLiteral("lw.editor.getValue()")).isEmpty());
}

void TestFileMenu::quitAndCloseButtonAskWhileSomethingIsUnsaved()
{
    type(QStringLiteral("unsaved"));
    QVERIFY(!delegate->documentManager()->documentTree().unsavedChanges());
    trigger("quitAction");
    answer(QStringLiteral("Are you sure?"), QStringLiteral("No"));
    QVERIFY(!delegate->window()->close());
    answer(QStringLiteral("Are you sure?"), QStringLiteral("No"));
    QVERIFY(delegate->window()->isVisible());
    QVERIFY(!current()->saved());

    // With 2 the close button does nothing at all.
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DoOnQuit"), 2);
    delegate->window()->close();
    QTest::qWait(200);
    QVERIFY(!delegate->window()->findChild<QMessageBox *>());
    QVERIFY(delegate->window()->isVisible());
    LWDefaults::shared()->removeObjectForKey(QStringLiteral("LW_DoOnQuit"));
}

LW_WEB_TEST_MAIN(TestFileMenu)
#include "tst_FileMenu.moc"
