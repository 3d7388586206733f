#include "app/LWPaths.h"
#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/LWStatusBar.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

// The shipped plugins in the real window on the real editor page: the
// plugin menus follow the document being shown, every key of the menu bar
// belongs to one item (a user's plugin wanting a taken key loses it) and works, and each shipped plugin, started by its key
// or its item, changes the editor, the terminal or the window as it should.
class tst_PluginsInWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void pluginMenusFollowTheShownDocument();
    void everyKeyBelongsToOneItem();
    void keysFollowTheItemStateWhileMenusAreClosed();
    void runSavesAndRunsThePythonFileInTheTerminal();
    void textPluginsChangeTheEditor();
    void formatJsonAlertsOnMalformedText();

private:
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    void show(const QString &fileName);
    void setText(const QString &text);
    void press(int key, Qt::KeyboardModifiers modifiers);
    QAction *item(const QString &title) const;
    QList<QAction *> pluginItems(QMenu *menu) const;
    QMenu *pluginsMenu() const;
    bool runButtonShown() const;
    bool windowShowsText(const QString &text) const;

    QTemporaryDir folder;
    std::unique_ptr<LWAppDelegate> delegate;
};

void tst_PluginsInWindow::initTestCase()
{
    // A user's plugin that the global index does not list, wanting Save's key.
    const QString userPlugin = LWPaths::dataPath("User/Plugins/Shout.lwPlugin");
    QVERIFY(QDir().mkpath(userPlugin));
    QFile manifest(userPlugin + "/info.json");
    QVERIFY(manifest.open(QIODevice::WriteOnly));
    manifest.write(R"({ "name": "shout", "category": "Mine", "shortcut": "@+S" })");
    manifest.close();
    QFile script(folder.filePath("hello.py"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("print('not saved yet')\n");
    script.close();
    QFile notes(folder.filePath("notes.txt"));
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.close();
    delegate = std::make_unique<LWAppDelegate>(QStringList{script.fileName(), notes.fileName()});
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QVERIFY(QTest::qWaitForWindowActive(delegate->window()));
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    QTRY_COMPARE_WITH_TIMEOUT(page("typeof core"), QStringLiteral("object"), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(delegate->documentManager()->documentTree().filesGroup()->children().size(),
                              std::size_t(2), 20000);
}

void tst_PluginsInWindow::cleanupTestCase()
{
    delegate.reset();
}

// Switches the editor to the workspace file of that name, as a click on its tab does.
void tst_PluginsInWindow::show(const QString &fileName)
{
    for (const LWDocument::Ptr &node : delegate->documentManager()->documentTree().filesGroup()->children()) {
        if (node->label() == fileName)
            delegate->documentManager()->switchToDoc(node);
    }
    QTRY_COMPARE(delegate->documentManager()->currentDocument()->label(), fileName);
}

void tst_PluginsInWindow::setText(const QString &text)
{
    const QString literal = QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
    page(QStringLiteral("lw.editor.setValue(%1[0], 1); ''").arg(literal));
}

void tst_PluginsInWindow::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(delegate->window(), Qt::Key(key), modifiers);
}

QAction *tst_PluginsInWindow::item(const QString &title) const
{
    const QList<QAction *> items = pluginItems(pluginsMenu());
    const auto found = std::find_if(items.begin(), items.end(), [&](QAction *item) { return item->text() == title; });
    return found == items.end() ? nullptr : *found;
}

QList<QAction *> tst_PluginsInWindow::pluginItems(QMenu *menu) const
{
    QList<QAction *> items;
    for (QAction *action : menu->actions())
        action->menu() ? items.append(pluginItems(action->menu())) : items.append(action);
    return items;
}

QMenu *tst_PluginsInWindow::pluginsMenu() const
{
    for (QAction *action : delegate->window()->menuBar()->actions()) {
        if (action->text() == QLatin1String("Plugins"))
            return action->menu();
    }
    return nullptr;
}

bool tst_PluginsInWindow::runButtonShown() const
{
    const QList<QToolButton *> buttons = delegate->window()->findChildren<QToolButton *>();
    return std::any_of(buttons.begin(), buttons.end(), [](QToolButton *button) {
        return button->text() == QLatin1String("Run") && !button->isHidden();
    });
}

bool tst_PluginsInWindow::windowShowsText(const QString &text) const
{
    const QList<QLabel *> labels = delegate->window()->findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(), [&](QLabel *label) { return label->text() == text; });
}

void tst_PluginsInWindow::pluginMenusFollowTheShownDocument()
{
    QMenu *statusMenu = delegate->window()->statusArea()->pluginsMenu();
    for (int round = 0; round < 2; ++round) {
        show("hello.py");
        QVERIFY(runButtonShown());
        QVERIFY(item("Run"));
        QCOMPARE(item("Run")->shortcut(), QKeySequence("Ctrl+R"));
        QVERIFY(pluginItems(statusMenu).contains(item("Run")));
        show("notes.txt");
        QVERIFY(!runButtonShown());
        QVERIFY(!item("Run"));
        QVERIFY(item("Sort Lines"));
        QVERIFY(pluginItems(statusMenu).contains(item("Sort Lines")));
    }
    QCOMPARE(pluginsMenu()->actions().at(2)->text(), QStringLiteral("Show User Folder"));
    QCOMPARE(statusMenu->actions().first()->text(), QStringLiteral("Show User Folder"));
}

void tst_PluginsInWindow::everyKeyBelongsToOneItem()
{
    show("hello.py");
    QHash<QKeySequence, QStringList> owners;
    for (QAction *action : delegate->window()->findChildren<QAction *>()) {
        for (const QKeySequence &key : action->shortcuts())
            owners[key].append(action->text());
    }
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner)
        QVERIFY2(owner.value().size() == 1,
                 qPrintable(owner.key().toString() + " belongs to " + owner.value().join(", ")));
    QVERIFY(item("Shout"));
    QVERIFY(item("Shout")->shortcut().isEmpty());
    QCOMPARE(delegate->window()->findChild<QAction *>("saveAction")->shortcut(), QKeySequence("Ctrl+S"));
    QCOMPARE(item("Preview HTML")->shortcut(), QKeySequence("Meta+Shift+P"));
    QCOMPARE(item("Preview Markdown")->shortcut(), QKeySequence("Ctrl+Shift+M"));
    QCOMPARE(item("Format JSON")->shortcut(), QKeySequence("Meta+Shift+J"));
    QCOMPARE(item("Sort Lines")->shortcut(), QKeySequence("Meta+F5"));
}

// "Use Selection for Find" is disabled without a selection; its key must
// notice a selection made while the Find menu stays closed, and its absence.
void tst_PluginsInWindow::keysFollowTheItemStateWhileMenusAreClosed()
{
    show("notes.txt");
    setText("find me");
    page("lw.editor.clearSelection(); ''");
    auto *useSelection = delegate->window()->findChild<QAction *>("useSelectionForFindAction");
    QVERIFY(useSelection);
    emit qobject_cast<QMenu *>(useSelection->parent())->aboutToShow();
    QVERIFY(!useSelection->isEnabled());
    QSignalSpy triggered(useSelection, &QAction::triggered);
    page("lw.editor.selectAll(); ''");
    press(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(triggered.size(), 1);
    page("lw.editor.clearSelection(); ''");
    press(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(triggered.size(), 1);
    QVERIFY(!useSelection->isEnabled());
}

void tst_PluginsInWindow::runSavesAndRunsThePythonFileInTheTerminal()
{
    show("hello.py");
    const QString program = QStringLiteral("print('ran', 6 * 7)\n");
    setText(program);
    QTRY_VERIFY(!delegate->documentManager()->currentDocument()->saved());
    press(Qt::Key_R, Qt::ControlModifier);
    QTRY_VERIFY_WITH_TIMEOUT(page("$('.terminal-output').text().replace(/\\u00a0/g, ' ')").contains("ran 42"), 20000);
    QFile saved(folder.filePath("hello.py"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(saved.readAll()), program);
    QVERIFY(delegate->documentManager()->currentDocument()->saved());
    QTRY_COMPARE_WITH_TIMEOUT(page("String($Terminal.isRunning())"), QStringLiteral("false"), 20000);
}

// Keys where the plugin has one, menu items otherwise; a final line break stays final.
void tst_PluginsInWindow::textPluginsChangeTheEditor()
{
    show("notes.txt");
    setText("pear\napple\npear\n");
    press(Qt::Key_F5, Qt::MetaModifier);
    QTRY_COMPARE(page("lw.getValue()"), QStringLiteral("apple\npear\npear\n"));
    item("Unique Lines")->trigger();
    QTRY_COMPARE(page("lw.getValue()"), QStringLiteral("apple\npear\n"));
    setText("a \t\nb  \n");
    item("Trim Trailing Whitespace")->trigger();
    QTRY_COMPARE(page("lw.getValue()"), QStringLiteral("a\nb\n"));
    setText("{\"b\":[1,2]}\n");
    press(Qt::Key_J, Qt::MetaModifier | Qt::ShiftModifier);
    QTRY_COMPARE(page("lw.getValue()"), QStringLiteral("{\n  \"b\": [\n    1,\n    2\n  ]\n}\n"));
    setText("two words\nthree");
    item("Word Count")->trigger();
    QTRY_VERIFY(windowShowsText("2 lines, 3 words, 15 characters"));
}

void tst_PluginsInWindow::formatJsonAlertsOnMalformedText()
{
    show("notes.txt");
    setText("{oops\n");
    item("Format JSON")->trigger();
    QMessageBox *alert = nullptr;
    QTRY_VERIFY((alert = delegate->window()->findChild<QMessageBox *>()));
    QCOMPARE(alert->text(), QStringLiteral("Format JSON"));
    QVERIFY(alert->informativeText().startsWith("The text is not valid JSON"));
    alert->accept();
    QCOMPARE(page("lw.getValue()"), QStringLiteral("{oops\n"));
}

QTEST_MAIN(tst_PluginsInWindow)
#include "tst_PluginsInWindow.moc"
