#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/ui/TabBarView.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QMenu>
#include <QTemporaryDir>

// The document tabs in the real window, driven by clicks and keys: the
// sidebar, the tab bar and the editor always show the same document, and
// closing a tab never loses text.
class TestTabBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void switchingTabsKeepsTextUndoAndCursor();
    void closingLandsOnTheNeighbour();
    void closingADirtyTabAsksFirst();
    void hiddenTabsAreReachedThroughTheList();
    void closeAllLeavesAnEmptyEditor();

private:
    QString write(const QString &name, const QByteArray &text);
    LWDocument::Ptr documentNamed(const QString &name) const;
    // Opens the file as quick open and the Window menu do: through its sidebar row.
    LWDocument::Ptr open(const QString &name);
    LWDocument::Ptr current() const { return window->delegate->documentManager()->currentDocument(); }
    TabBarView *tabs() const { return window->delegate->window()->tabs(); }
    void clickTab(TabCell *tab, Qt::MouseButton button = Qt::LeftButton);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers);
    void verifyShownEverywhere(const LWDocument::Ptr &document);

    QTemporaryDir folder;
    std::unique_ptr<WindowDriver> window;
};

QString TestTabBar::write(const QString &name, const QByteArray &text)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void TestTabBar::initTestCase()
{
    window = std::make_unique<WindowDriver>(
        QStringList{write(QStringLiteral("alpha.txt"), "alpha\n"), write(QStringLiteral("beta.txt"), "beta\n")});
    for (int index = 0; index < 8; ++index)
        write(QStringLiteral("more%1.txt").arg(index), QByteArray("more ") + QByteArray::number(index));
    QVERIFY(window->start());
    QTRY_VERIFY_WITH_TIMEOUT(current() && current()->label() == QLatin1String("beta.txt"), 20000);
}

void TestTabBar::cleanupTestCase()
{
    window.reset();
}

LWDocument::Ptr TestTabBar::documentNamed(const QString &name) const
{
    return window->delegate->documentManager()->documentTree().documentWithFullPath(folder.filePath(name));
}

LWDocument::Ptr TestTabBar::open(const QString &name)
{
    LWDocument::Ptr document = documentNamed(name);
    if (!document) {
        document = LWDocument::fileFromPath(folder.filePath(name));
        window->delegate->documentManager()->documentTree().filesGroup()->addChildDocument(document);
        window->delegate->reloadOutline();
    }
    window->delegate->selectInOutline(document);
    return document;
}

void TestTabBar::clickTab(TabCell *tab, Qt::MouseButton button)
{
    QVERIFY(tab);
    QTest::mouseClick(tabs(), button, {}, tab->frame().center());
}

void TestTabBar::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    window->activate();
    QTest::keyClick(window->editorWidget(), key, modifiers);
}

void TestTabBar::verifyShownEverywhere(const LWDocument::Ptr &document)
{
    QTRY_COMPARE(current(), document);
    QVERIFY(tabs()->selectedTab());
    QCOMPARE(tabs()->selectedTab()->linkedDocument(), document);
    QCOMPARE(window->delegate->selectedInOutline(), document);
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), document->content().value_or(QString()));
}

void TestTabBar::switchingTabsKeepsTextUndoAndCursor()
{
    const LWDocument::Ptr alpha = documentNamed(QStringLiteral("alpha.txt"));
    const LWDocument::Ptr beta = documentNamed(QStringLiteral("beta.txt"));
    QCOMPARE(tabs()->count(), 2);
    clickTab(tabs()->tabForDocument(alpha));
    verifyShownEverywhere(alpha);
    QVERIFY(!tabs()->tabForDocument(alpha)->isUnsaved());

    QVERIFY(window->typeKeys(QStringLiteral("xy")));
    QTRY_VERIFY(tabs()->tabForDocument(alpha)->isUnsaved());
    const QString cursor = window->page(QStringLiteral("JSON.stringify(lw.editor.getCursorPosition())"));

    press(Qt::Key_Tab, Qt::ControlModifier);
    verifyShownEverywhere(beta);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    verifyShownEverywhere(alpha);
    QCOMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("xyalpha\n"));
    QCOMPARE(window->page(QStringLiteral("JSON.stringify(lw.editor.getCursorPosition())")), cursor);
    QVERIFY(window->typeKeys(QString()));
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("alpha\n"));
    // The text the file was opened with is not an edit to undo.
    press(Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(200);
    QCOMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("alpha\n"));
    // A switch right after typing: the late change report marks only the typed document.
    QVERIFY(window->typeKeys(QStringLiteral("z")));
    QTRY_COMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("zalpha\n"));
    press(Qt::Key_Tab, Qt::ControlModifier);
    verifyShownEverywhere(beta);
    QTest::qWait(300);
    QVERIFY(beta->saved());
    QVERIFY(tabs()->tabForDocument(alpha)->isUnsaved());
    QCOMPARE(alpha->content(), std::optional<QString>(QStringLiteral("zalpha\n")));
}

// Tabs: alpha (unsaved), beta, and the files opened here.
void TestTabBar::closingLandsOnTheNeighbour()
{
    const LWDocument::Ptr beta = documentNamed(QStringLiteral("beta.txt"));
    const LWDocument::Ptr first = open(QStringLiteral("more0.txt"));
    verifyShownEverywhere(first);
    QCOMPARE(tabs()->count(), 3);
    // Opening it again selects its tab rather than adding one.
    open(QStringLiteral("beta.txt"));
    verifyShownEverywhere(beta);
    open(QStringLiteral("more0.txt"));
    QCOMPARE(tabs()->count(), 3);

    press(Qt::Key_W, Qt::ControlModifier);
    verifyShownEverywhere(beta);
    QCOMPARE(tabs()->count(), 2);
    QVERIFY(!tabs()->tabForDocument(first));

    // Next document follows the sidebar's rows: beta's row is followed by more0's.
    window->delegate->window()->findChild<QAction *>(QStringLiteral("nextDocumentAction"))->trigger();
    verifyShownEverywhere(first);
    QCOMPARE(tabs()->count(), 3);
    clickTab(tabs()->tabForDocument(first), Qt::MiddleButton);
    verifyShownEverywhere(beta);
}

void TestTabBar::closingADirtyTabAsksFirst()
{
    const LWDocument::Ptr alpha = documentNamed(QStringLiteral("alpha.txt"));
    const LWDocument::Ptr beta = documentNamed(QStringLiteral("beta.txt"));
    QVERIFY(!alpha->saved());
    QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabForDocument(alpha)->closeButtonRect().center());
    QVERIFY(window->question());
    // The question is about the tab in front.
    verifyShownEverywhere(alpha);
    QVERIFY(window->answer(QStringLiteral("Cancel")));
    QCOMPARE(tabs()->count(), 2);
    QVERIFY(!alpha->saved());
    QCOMPARE(window->page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("zalpha\n"));

    press(Qt::Key_W, Qt::ControlModifier);
    QVERIFY(window->answer(QStringLiteral("Don't Save")));
    verifyShownEverywhere(beta);
    QCOMPARE(tabs()->count(), 1);
    QFile onDisk(folder.filePath(QStringLiteral("alpha.txt")));
    QVERIFY(onDisk.open(QIODevice::ReadOnly));
    QCOMPARE(onDisk.readAll(), QByteArray("alpha\n"));
    QVERIFY(alpha->saved());
    QCOMPARE(alpha->content(), std::optional<QString>(QStringLiteral("alpha\n")));
}

void TestTabBar::hiddenTabsAreReachedThroughTheList()
{
    window->delegate->window()->resize(520, 700);
    for (int index = 0; index < 8; ++index)
        open(QStringLiteral("more%1.txt").arg(index));
    QTRY_VERIFY(tabs()->hasHiddenTabs());
    int hidden = tabs()->count() - 1;
    QVERIFY(!tabs()->isInsideBar(hidden));
    const LWDocument::Ptr chosen = tabs()->tabAt(hidden)->linkedDocument();

    QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->listControlRect().center());
    QMenu *list = tabs()->findChild<QMenu *>();
    QTRY_VERIFY(list->isVisible());
    QCOMPARE(list->actions().size(), tabs()->count());
    QCOMPARE(list->actions().at(hidden)->text(), chosen->label());
    list->actions().at(hidden)->trigger();
    list->hide();
    verifyShownEverywhere(chosen);
    QCOMPARE(tabs()->tabAt(0)->linkedDocument(), chosen);

    const int count = tabs()->count();
    clickTab(tabs()->tabAt(0), Qt::MiddleButton);
    QCOMPARE(tabs()->count(), count - 1);
    verifyShownEverywhere(tabs()->tabAt(0)->linkedDocument());
    window->delegate->window()->resize(1000, 700);
}

void TestTabBar::closeAllLeavesAnEmptyEditor()
{
    window->delegate->window()->findChild<QAction *>(QStringLiteral("closeAllAction"))->trigger();
    QCOMPARE(tabs()->count(), 0);
    QVERIFY(!current());
    QTRY_COMPARE(window->page(QStringLiteral("String(lw.editor.getValue() === '' && lw.editor.getReadOnly())")),
                 QStringLiteral("true"));
    const LWDocument::Ptr beta = open(QStringLiteral("beta.txt"));
    verifyShownEverywhere(beta);
    QCOMPARE(window->page(QStringLiteral("String(lw.editor.getReadOnly())")), QStringLiteral("false"));
}

LW_WEB_TEST_MAIN(TestTabBar)
#include "tst_TabBar.moc"
