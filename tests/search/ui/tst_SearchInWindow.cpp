#include "documents/ui/TabBarView.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "search/ui/CommandPalette.h"
#include "search/ui/FindInFilesDialog.h"
#include "search/ui/FuzzyPopup.h"
#include "search/ui/QuickOpen.h"
#include "search/ui/SearchCommands.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTreeWidget>

// Quick open, find in files, the command palette and completion in the real
// window, over a workspace folder of 10,000 files, used from the keyboard
// and the mouse.
class TestSearchInWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { driver.reset(); }
    void quickOpenFindsAndOpensAFile();
    void findInFilesOpensTheFileAtTheLine();
    void commandPaletteRunsAMenuCommand();
    void completionOffersWordsAndExpandsSnippets();

private:
    void write(const QString &relative, const QByteArray &content) const;
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void openByQuickOpen(const QString &name);
    QStringList rowsOf(const FuzzyPopup *popup) const;
    QString currentPath() const;
    SearchCommands *search() const { return driver->delegate->search(); }

    QTemporaryDir scratch;
    QString root;
    std::unique_ptr<WindowDriver> driver;
};

void TestSearchInWindow::write(const QString &relative, const QByteArray &content) const
{
    const QString path = root + QLatin1Char('/') + relative;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// A key as the user presses it, with the keyboard wherever the window has put it.
void TestSearchInWindow::press(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget *focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : driver->delegate->window(), Qt::Key(key), modifiers);
}

void TestSearchInWindow::openByQuickOpen(const QString &name)
{
    QVERIFY(driver->activate());
    press(Qt::Key_P, Qt::ControlModifier);
    FuzzyPopup *popup = search()->quickOpen()->popup();
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClicks(popup->field(), name);
    QTRY_VERIFY(!rowsOf(popup).isEmpty() && rowsOf(popup).first().startsWith(name));
    press(Qt::Key_Return);
    QTRY_VERIFY(currentPath().endsWith(QLatin1Char('/') + name));
}

QStringList TestSearchInWindow::rowsOf(const FuzzyPopup *popup) const
{
    QStringList rows;
    for (int row = 0; row < popup->list()->count(); ++row) {
        QTextDocument text;
        text.setHtml(popup->list()->item(row)->text());
        rows.append(text.toPlainText());
    }
    return rows;
}

QString TestSearchInWindow::currentPath() const
{
    const LWDocument::Ptr current = driver->delegate->documentManager()->currentDocument();
    return current ? current->fullPath() : QString();
}

void TestSearchInWindow::initTestCase()
{
    root = scratch.filePath(QStringLiteral("proj"));
    for (int folder = 0; folder < 100; ++folder)
        for (int file = 0; file < 100; ++file)
            write(QStringLiteral("dir%1/file%2.txt").arg(folder).arg(folder * 100 + file), "plain line\n");
    write(QStringLiteral("deep/er/needle_target.cpp"), "int x;\n\nconst char *marker = \"zebra-unicorn-42\";\n");
    write(QStringLiteral("code.js"), "var uniqueCounterName = 1;\n");
    write(QStringLiteral(".git/HEAD"), "ref: refs/heads/main\n");
    driver = std::make_unique<WindowDriver>(QStringList{root});
    QVERIFY(driver->start());
    QTRY_VERIFY_WITH_TIMEOUT(driver->delegate->documentManager()->documentTree().groups().size() > 1, 60000);
}

void TestSearchInWindow::quickOpenFindsAndOpensAFile()
{
    QVERIFY(driver->activate());
    press(Qt::Key_P, Qt::ControlModifier);
    FuzzyPopup *popup = search()->quickOpen()->popup();
    QTRY_VERIFY(popup->isVisible() && popup->field()->hasFocus());

    QTest::keyClicks(popup->field(), QStringLiteral("HEAD"));
    QTRY_COMPARE(rowsOf(popup), QStringList{"No matching file"});
    popup->field()->clear();
    QTest::keyClicks(popup->field(), QStringLiteral("neetarg"));
    QTRY_VERIFY(!rowsOf(popup).isEmpty() && rowsOf(popup).first().startsWith("needle_target.cpp"));
    QVERIFY(rowsOf(popup).first().contains("proj/deep/er/"));
    press(Qt::Key_Return);

    QVERIFY(!popup->isVisible());
    QTRY_VERIFY(currentPath().endsWith("deep/er/needle_target.cpp"));
    TabBarView *tabs = driver->delegate->window()->tabs();
    QVERIFY(tabs->selectedTab());
    QCOMPARE(tabs->selectedTab()->title(), QStringLiteral("needle_target.cpp"));
    QTRY_VERIFY(driver->page("lw.editor.getValue()").contains("zebra-unicorn-42"));

    // Escape leaves without opening anything.
    press(Qt::Key_P, Qt::ControlModifier);
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClicks(popup->field(), QStringLiteral("file42"));
    press(Qt::Key_Escape);
    QVERIFY(!popup->isVisible());
    QVERIFY(currentPath().endsWith("needle_target.cpp"));
}

void TestSearchInWindow::findInFilesOpensTheFileAtTheLine()
{
    QVERIFY(driver->activate());
    openByQuickOpen(QStringLiteral("code.js"));
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    FindInFilesDialog *dialog = search()->findInFiles();
    QTRY_VERIFY(dialog->isVisible());

    QTest::keyClicks(dialog->queryField(), QStringLiteral("zebra-UNICORN"));
    QTest::keyClick(dialog->queryField(), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(dialog->statusLabel()->text().contains("in 10002 file(s) searched"), 30000);
    QCOMPARE(dialog->resultList()->topLevelItemCount(), 1);
    QTreeWidgetItem *hit = dialog->resultList()->topLevelItem(0);
    QCOMPARE(hit->text(0), QStringLiteral("proj/deep/er/needle_target.cpp"));
    QCOMPARE(hit->text(1), QStringLiteral("3"));

    QTreeWidget *list = dialog->resultList();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(hit).center());
    QTRY_VERIFY(currentPath().endsWith("needle_target.cpp"));
    QTRY_COMPARE(driver->page("String(lw.editor.getCursorPosition().row)"), QStringLiteral("2"));
    dialog->close();
}

void TestSearchInWindow::commandPaletteRunsAMenuCommand()
{
    QWidget *sidebar = driver->delegate->window()->outline();
    QVERIFY(sidebar->isVisible());
    QVERIFY(driver->activate());
    press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    FuzzyPopup *popup = search()->commandPalette()->popup();
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClicks(popup->field(), QStringLiteral("vi sideb"));
    QTRY_VERIFY(!rowsOf(popup).isEmpty());
    QCOMPARE(rowsOf(popup).first(), QStringLiteral("View > Sidebar"));
    press(Qt::Key_Return);
    QTRY_VERIFY(!sidebar->isVisible());
}

void TestSearchInWindow::completionOffersWordsAndExpandsSnippets()
{
    openByQuickOpen(QStringLiteral("code.js"));
    QTRY_COMPARE(driver->page("lw.editor.session.getMode().$id"), QStringLiteral("ace/mode/javascript"));
    driver->page("lw.editor.navigateFileEnd();");
    QVERIFY(driver->typeKeys(QStringLiteral("uniqueC")));
    QTRY_COMPARE(driver->page("String(!!(lw.editor.completer && lw.editor.completer.activated))"),
                 QStringLiteral("true"));
    QTest::keyClick(driver->editorWidget(), Qt::Key_Escape);

    QTest::keyClick(driver->editorWidget(), Qt::Key_Return);
    QVERIFY(driver->typeKeys(QString()));
    QTest::keyClicks(driver->editorWidget(), QStringLiteral("proto"), Qt::NoModifier, 80);
    QTRY_COMPARE(driver->page("String(lw.editor.completer.activated)"), QStringLiteral("true"));
    QTest::keyClick(driver->editorWidget(), Qt::Key_Tab);
    QTRY_VERIFY(driver->page("lw.editor.getValue()").contains("class_name.prototype.method_name = function"));
}

LW_WEB_TEST_MAIN(TestSearchInWindow)
#include "tst_SearchInWindow.moc"
