#include "app/LWDefaults.h"
#include "app/ui/LWStatusBar.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/ui/TabBarView.h"
#include "support/WindowDriver.h"
#include "support/WebTestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QMenuBar>
#include <QScreen>

// The menu bar of the real window on the real editor page, used as a person
// does: every menu opened, Edit commands on typed text, View toggles, themes,
// the About window and a confirmation.
class TestMenuBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void everyMenuOpensFitsAndBindsEachKeyOnce();
    void editCommandsActOnTheEditor();
    void editCommandsActOnAFocusedLineEdit();
    void ctrlCStillInterruptsTheTerminal();
    void layoutToggleFlipsItsMarkPaneAndDefault();
    void darkThemeRecoloursTheWindow();
    void confirmationButtonsAndAnswers();
    void aboutShowsTheVersion();

private:
    QMenuBar *bar() const { return driver->delegate->window()->menuBar(); }
    QAction *item(const char *name) const { return bar()->findChild<QAction *>(QLatin1String(name)); }
    QString page(const QString &script) { return driver->page(script); }
    QString editorText() { return page(QStringLiteral("lw.editor.getValue()")); }
    // Opens the menu holding the item, as a person does before reading its mark.
    void showMenuOf(QAction *item);
    QAction *themeItem(const QString &group) const;

    std::unique_ptr<WindowDriver> driver;
};

void TestMenuBar::initTestCase()
{
    driver = std::make_unique<WindowDriver>();
    QVERIFY(driver->start());
}

void TestMenuBar::cleanupTestCase()
{
    driver.reset();
}

void TestMenuBar::showMenuOf(QAction *item)
{
    for (QObject *parent = item->parent(); parent; parent = parent->parent()) {
        if (auto *menu = qobject_cast<QMenu *>(parent))
            emit menu->aboutToShow();
    }
}

QAction *TestMenuBar::themeItem(const QString &group) const
{
    auto *themes = bar()->findChild<QMenu *>(QStringLiteral("themesMenu"));
    for (QAction *submenu : themes->actions()) {
        if (submenu->text() == group && submenu->menu())
            return submenu->menu()->findChildren<QAction *>(QStringLiteral("setThemeAction")).value(0);
    }
    return nullptr;
}

namespace {

// Every item below the menu with the path of titles that leads to it.
void collectItems(QMenu *menu, const QString &path, QList<QPair<QString, QAction *>> &items)
{
    for (QAction *action : menu->actions()) {
        if (action->isSeparator())
            continue;
        const QString itemPath = path + QStringLiteral(" > ") + action->text();
        items.append({itemPath, action});
        if (action->menu())
            collectItems(action->menu(), itemPath, items);
    }
}

}

void TestMenuBar::everyMenuOpensFitsAndBindsEachKeyOnce()
{
    QStringList titles;
    for (QAction *menu : bar()->actions())
        titles << menu->text();
    QCOMPARE(titles, QStringList({"File", "Edit", "Find", "View", "Document", "Plugins", "Window", "Help"}));

    const int screenHeight = driver->delegate->window()->screen()->availableGeometry().height();
    QHash<QKeySequence, QString> owners;
    for (QAction *top : bar()->actions()) {
        bar()->setActiveAction(top);
        QTRY_VERIFY2(top->menu()->isVisible(), qPrintable(top->text()));
        top->menu()->hide();
        QList<QPair<QString, QAction *>> items;
        collectItems(top->menu(), top->text(), items);
        QVERIFY2(!items.isEmpty(), qPrintable(top->text()));
        for (const auto &[path, action] : items) {
            if (QMenu *submenu = action->menu(); submenu && action->isEnabled())
                QVERIFY2(submenu->sizeHint().height() <= screenHeight, qPrintable(path));
            for (const QKeySequence &key : action->shortcuts()) {
                QVERIFY2(!owners.contains(key), qPrintable(QStringLiteral("%1 is bound to %2 and %3")
                                                               .arg(key.toString(), owners.value(key), path)));
                owners.insert(key, path);
            }
        }
    }
    for (const char *key : {"Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+A", "Ctrl+W", "Ctrl+G",
                            "F3", "Ctrl+B", "Ctrl+Tab", "Ctrl+PgDown", "F1"})
        QVERIFY2(owners.contains(QKeySequence(QLatin1String(key))), key);
}

void TestMenuBar::editCommandsActOnTheEditor()
{
    page(QStringLiteral("lw.editor.setValue(''); lw.editor.focus(); ''"));
    QVERIFY(driver->typeKeys(QStringLiteral("hello menus")));
    QTRY_COMPARE(editorText(), QStringLiteral("hello menus"));

    item("selectAllAction")->trigger();
    QTRY_COMPARE(page(QStringLiteral("lw.editor.getSelectedText()")), QStringLiteral("hello menus"));
    item("cutAction")->trigger();
    QTRY_COMPARE(editorText(), QString());
    QTRY_COMPARE(QApplication::clipboard()->text(), QStringLiteral("hello menus"));

    item("undoAction")->trigger();
    QTRY_COMPARE(editorText(), QStringLiteral("hello menus"));
    item("redoAction")->trigger();
    QTRY_COMPARE(editorText(), QString());

    item("pasteAction")->trigger();
    item("pasteAction")->trigger();
    QTRY_COMPARE(editorText(), QStringLiteral("hello menushello menus"));

    QApplication::clipboard()->clear();
    item("selectAllAction")->trigger();
    item("copyAction")->trigger();
    QTRY_COMPARE(QApplication::clipboard()->text(), QStringLiteral("hello menushello menus"));
    QCOMPARE(editorText(), QStringLiteral("hello menushello menus"));
}

// The input dialog's field has the keyboard: the Edit menu acts on it, not on
// the editor behind it.
// The shown text field of the dialog in front of the window (the window has fields of its own).
static QLineEdit *dialogField(QWidget *window)
{
    for (QLineEdit *field : window->findChildren<QLineEdit *>())
        if (field->window() != window && field->isVisible())
            return field;
    return nullptr;
}

void TestMenuBar::editCommandsActOnAFocusedLineEdit()
{
    const QString before = editorText();
    QString accepted;
    driver->delegate->showInput(QStringLiteral("Name"), QString(), [&](const QString &text) { accepted = text; });
    QLineEdit *field = nullptr;
    QTRY_VERIFY((field = dialogField(driver->delegate->window())));
    field->activateWindow();
    field->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), field);
    QTest::keyClicks(field, QStringLiteral("typed"));
    item("selectAllAction")->trigger();
    item("cutAction")->trigger();
    QCOMPARE(field->text(), QString());
    item("undoAction")->trigger();
    QCOMPARE(field->text(), QStringLiteral("typed"));
    QTest::keyClick(field, Qt::Key_End);
    item("pasteAction")->trigger();
    QCOMPARE(field->text(), QStringLiteral("typedtyped"));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(accepted, QStringLiteral("typedtyped"));
    QCOMPARE(editorText(), before);
}

// Copy's key belongs to the page while it has the keyboard: in the terminal
// console it stops the running command.
void TestMenuBar::ctrlCStillInterruptsTheTerminal()
{
    page(QStringLiteral("$Terminal.exec('sleep 100'); ''"));
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.isRunning())")), QStringLiteral("true"), 10000);
    driver->activate();
    item("toggleTerminalFocusAction")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.hasFocus())")), QStringLiteral("true"), 5000);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.isRunning())")), QStringLiteral("false"), 5000);
    item("toggleTerminalFocusAction")->trigger();
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.hasFocus())")), QStringLiteral("false"), 5000);
}

void TestMenuBar::layoutToggleFlipsItsMarkPaneAndDefault()
{
    WorkspaceOutline *sidebar = driver->delegate->window()->outline();
    QAction *toggle = item("toggleSidebarAction");
    const int width = sidebar->width();
    showMenuOf(toggle);
    QVERIFY(toggle->isChecked());

    toggle->trigger();
    QVERIFY(!sidebar->isVisible());
    QVERIFY(!LWDefaults::shared()->boolForKey(QStringLiteral("LW_Sidebar")));
    showMenuOf(toggle);
    QVERIFY(!toggle->isChecked());

    driver->delegate->window()->resize(1100, 700);
    toggle->trigger();
    QTRY_VERIFY(sidebar->isVisible());
    QVERIFY(LWDefaults::shared()->boolForKey(QStringLiteral("LW_Sidebar")));
    QTRY_COMPARE(sidebar->width(), width);
    showMenuOf(toggle);
    QVERIFY(toggle->isChecked());
    driver->delegate->window()->resize(1000, 700);
}

void TestMenuBar::darkThemeRecoloursTheWindow()
{
    const auto lightness = [](QWidget *part, QPalette::ColorRole role) {
        return part->palette().color(role).lightness();
    };
    QWidget *sidebar = driver->delegate->window()->outline();
    QWidget *statusBar = driver->delegate->window()->statusArea();
    QAction *dark = themeItem(QStringLiteral("Dark"));
    QAction *light = themeItem(QStringLiteral("Light"));
    QVERIFY(dark && light);

    dark->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(lightness(sidebar, QPalette::Base) < 100, 10000);
    QVERIFY(lightness(sidebar, QPalette::Text) > 150);
    QVERIFY(lightness(statusBar, QPalette::Window) < 100);
    QVERIFY(driver->delegate->window()->tabs()->colors().tabActivedBGColor.lightness() < 100);
    QCOMPARE(LWDefaults::shared()->stringForKey(QStringLiteral("LW_Theme")), dark->text());
    showMenuOf(dark);
    QVERIFY(dark->isChecked() && !light->isChecked());

    light->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(lightness(statusBar, QPalette::Window) > 150, 10000);
    QVERIFY(lightness(sidebar, QPalette::Base) > 150);
    QVERIFY(driver->delegate->window()->tabs()->colors().tabActivedBGColor.lightness() > 150);
}

// The default button sits at the trailing edge and answers 1, the other 0.
void TestMenuBar::confirmationButtonsAndAnswers()
{
    QList<int> answers;
    for (const QString &pressed : {QStringLiteral("OK"), QStringLiteral("Cancel")}) {
        driver->delegate->showConfirmation(QStringLiteral("Remove the whole folder and everything in it?"),
                                           QStringLiteral("It cannot be undone."),
                                           [&](int answer) { answers.append(answer); });
        QMessageBox *box = driver->question();
        QVERIFY(box);
        QCOMPARE(box->windowModality(), Qt::WindowModal);
        QCOMPARE(box->text(), QStringLiteral("Remove the whole folder and everything in it?"));
        const QList<QAbstractButton *> buttons = box->buttons();
        QCOMPARE(buttons.size(), 2);
        QAbstractButton *ok = buttons.at(0)->text() == QLatin1String("OK") ? buttons.at(0) : buttons.at(1);
        QAbstractButton *cancel = ok == buttons.at(0) ? buttons.at(1) : buttons.at(0);
        QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
        QCOMPARE(static_cast<QAbstractButton *>(box->defaultButton()), ok);
        QVERIFY(ok->mapTo(box, QPoint()).x() > cancel->mapTo(box, QPoint()).x());
        QVERIFY(box->width() >= 420);
        QVERIFY(driver->answer(pressed));
    }
    QTRY_COMPARE(answers, QList<int>({1, 0}));
}

void TestMenuBar::aboutShowsTheVersion()
{
    item("aboutAction")->trigger();
    QDialog *about = nullptr;
    const auto shown = [&] {
        for (QDialog *dialog : driver->delegate->window()->findChildren<QDialog *>())
            if (dialog->isVisible() && dialog->windowTitle() == QLatin1String("About Larkwood"))
                return about = dialog;
        return about = nullptr;
    };
    QTRY_VERIFY(shown());
    QCOMPARE(about->windowModality(), Qt::WindowModal);
    const QList<QLabel *> labels = about->findChildren<QLabel *>();
    const auto shows = [&labels](const QString &text) {
        return std::any_of(labels.begin(), labels.end(), [&](QLabel *label) { return label->text() == text; });
    };
    QVERIFY(shows(QStringLiteral("Version %1 (build %2)").arg(QLatin1String(LARKWOOD_VERSION)).arg(LARKWOOD_BUILD_NUMBER)));
    QVERIFY(shows(QStringLiteral("Larkwood")));
    about->accept();
}

LW_WEB_TEST_MAIN(TestMenuBar)
#include "tst_MenuBar.moc"
