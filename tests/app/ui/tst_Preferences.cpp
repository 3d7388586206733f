#include "app/LWDefaults.h"
#include "app/LWSettingsFile.h"
#include "app/LWShellSupport.h"
#include "app/ui/LWMasterPreferences.h"
#include "app/ui/PreferencesSheet.h"
#include "app/ui/WorkspaceOutline.h"
#include "app/ui/DocumentTabs.h"
#include "documents/LWDocumentManager.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>

namespace {

// Counts how often a widget is shown or hidden.
class VisibilityChanges : public QObject
{
public:
    explicit VisibilityChanges(QWidget *widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
            ++count;
        return false;
    }
};

// The editor calls that apply each setting.
const QHash<QString, QString> pageCallOf{
    {"LW_Panel", "togglePanel"},           {"LW_Gutter", "toggleGutter"},
    {"LW_PrintMargin", "togglePrintMargin"}, {"LW_IndentationGuides", "toggleIndentationGuides"},
    {"LW_Invisibles", "toggleInvisibles"}, {"LW_SoftTabs", "toggleSoftTabs"},
    {"LW_WordWrap", "toggleWordWrap"},     {"LW_TabSize", "setTabSize"},
    {"LW_WrapLimit", "setWrapLimit"},      {"LW_FontSize", "setFontSize"},
    {"LW_FontName", "fontFamily"}};

}

// The preferences window, the quick preferences sheet, resetting the settings
// and installing the launcher, used through the real window and editor page,
// which starts from a damaged settings file.
class TestPreferences : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void startsWithDefaultsFromADamagedFile();
    void controlsApplyEachSettingOnce();
    void viewMenuAndOpenWindowAgree();
    void sheetAppliesOnlyWhatChanged();
    void resetAsksFirst();
    void launcherIsInstalledOnce();

private:
    QAction *menuItem(const QString &name) const
    {
        return driver->delegate->window()->menuBar()->findChild<QAction *>(name);
    }
    template <typename Window>
    Window *openWith(int key, Qt::KeyboardModifiers modifiers);
    // Page calls counted since the last reset, by the lw function's name.
    int pageCalls(const QString &function)
    {
        return driver->page(QStringLiteral("String(window.__calls['%1'] || 0)").arg(function)).toInt();
    }
    void resetPageCalls() { driver->page(QStringLiteral("window.__calls = {}; ''")); }
    // Waits for queued work to reach the page.
    void settle() { QTest::qWait(300); }
    // Waits until the page has seen function called once, and not again since.
    bool calledOnce(const QString &function)
    {
        for (int waited = 0; waited < 5000 && pageCalls(function) == 0; waited += 50)
            QTest::qWait(50);
        settle();
        return pageCalls(function) == 1;
    }
    QWidget *windowPart(const QString &key) const;

    std::unique_ptr<WindowDriver> driver;
};

void TestPreferences::initTestCase()
{
    QDir().mkpath(QFileInfo(LWSettingsFile::path()).path());
    QFile damaged(LWSettingsFile::path());
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray("\x00\xff\xfe garbage\n[General]\nLW_TabSize=wide\nLW_Gutter=perhaps\nLW_FontSize=\n"
                             "LW_PreviouslyOpened=@Variant(\\0\\xff)\n",
                             90));
    damaged.close();
    driver = std::make_unique<WindowDriver>();
    QVERIFY(driver->start());
    driver->page(QStringLiteral(
        "window.__calls = {};"
        "Object.keys(lw).forEach(function (name) { var f = lw[name]; if (typeof f !== 'function') return;"
        "  lw[name] = function () { __calls[name] = (__calls[name] || 0) + 1; return f.apply(this, arguments); }; });"
        "var setOption = lw.editor.setOption; lw.editor.setOption = function (name) {"
        "  __calls[name] = (__calls[name] || 0) + 1; return setOption.apply(this, arguments); }; ''"));
}

template <typename Window>
Window *TestPreferences::openWith(int key, Qt::KeyboardModifiers modifiers)
{
    driver->activate();
    QTest::keyClick(driver->delegate->window(), static_cast<Qt::Key>(key), modifiers);
    Window *window = nullptr;
    for (int waited = 0; waited < 5000 && !window; waited += 50) {
        QTest::qWait(50);
        window = driver->delegate->window()->findChild<Window *>();
    }
    return window && window->isVisible() ? window : nullptr;
}

QWidget *TestPreferences::windowPart(const QString &key) const
{
    LWMainWindow *window = driver->delegate->window();
    if (key == QLatin1String("LW_Sidebar"))
        return window->outline();
    if (key == QLatin1String("LW_TabBar"))
        return window->tabs();
    return window->statusBar();
}

void TestPreferences::startsWithDefaultsFromADamagedFile()
{
    QVERIFY(QFile::exists(LWSettingsFile::path() + QStringLiteral(".unreadable")));
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.session.getTabSize())")), QStringLiteral("4"));
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.renderer.getShowGutter())")), QStringLiteral("true"));
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.getFontSize())")), QStringLiteral("14"));
    QVERIFY(driver->delegate->documentManager()->currentDocument()->isUntitled());
}

void TestPreferences::controlsApplyEachSettingOnce()
{
    auto *preferences = openWith<LWMasterPreferences>(Qt::Key_Comma, Qt::ControlModifier);
    QVERIFY(preferences);
    QCOMPARE(preferences->selectedPage(), QStringLiteral("General"));
    for (const QString &key : {"LW_Sidebar", "LW_TabBar", "LW_StatusBar"}) {
        VisibilityChanges changes(windowPart(key));
        const bool before = LWDefaults::shared()->boolForKey(key);
        preferences->findChild<QCheckBox *>(key)->click();
        QTRY_COMPARE(changes.count, 1);
        settle();
        QCOMPARE(changes.count, 1);
        QCOMPARE(windowPart(key)->isVisible(), !before);
        preferences->findChild<QCheckBox *>(key)->click();
        settle();
    }
    resetPageCalls();
    for (const QString &key : {"LW_Panel", "LW_Gutter", "LW_PrintMargin", "LW_IndentationGuides", "LW_Invisibles",
                               "LW_SoftTabs", "LW_WordWrap"}) {
        preferences->findChild<QCheckBox *>(key)->click();
        QVERIFY2(calledOnce(pageCallOf.value(key)), qPrintable(key));
    }
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.renderer.getShowGutter())")), QStringLiteral("false"));

    preferences->selectPage(QStringLiteral("Editor"));
    for (const auto &[key, typed] : {std::pair{"LW_TabSize", "8"}, {"LW_WrapLimit", "80"}}) {
        auto *box = preferences->findChild<QSpinBox *>(key);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, typed);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY2(calledOnce(pageCallOf.value(key)), key);
    }
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.session.getTabSize())")), QStringLiteral("8"));

    auto *fontSize = preferences->findChild<QComboBox *>(QStringLiteral("LW_FontSize"));
    fontSize->lineEdit()->selectAll();
    QTest::keyClicks(fontSize->lineEdit(), QStringLiteral("18"));
    QTest::keyClick(fontSize->lineEdit(), Qt::Key_Return);
    QVERIFY(calledOnce(QStringLiteral("setFontSize")));
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.getFontSize())")), QStringLiteral("18"));

    preferences->findChild<QPushButton *>(QStringLiteral("showFontDialog"))->click();
    auto *fonts = preferences->findChild<QFontDialog *>(QStringLiteral("fontDialog"));
    QVERIFY(fonts && fonts->isVisible());
    fonts->setCurrentFont(QFont(QStringLiteral("DejaVu Sans Mono")));
    fonts->accept();
    QVERIFY(calledOnce(QStringLiteral("fontFamily")));
    const QString family = LWDefaults::shared()->fontName();
    QCOMPARE(preferences->findChild<QComboBox *>(QStringLiteral("LW_FontName"))->currentText(), family);
    QVERIFY(driver->page(QStringLiteral("lw.editor.getOption('fontFamily')")).contains(family));
    preferences->close();
}

// A View menu toggle while the window is open comes back through the
// window once and leaves the same value everywhere.
void TestPreferences::viewMenuAndOpenWindowAgree()
{
    auto *preferences = openWith<LWMasterPreferences>(Qt::Key_Comma, Qt::ControlModifier);
    QVERIFY(preferences);
    const bool before = LWDefaults::shared()->boolForKey(QStringLiteral("LW_Sidebar"));
    menuItem(QStringLiteral("toggleSidebarAction"))->trigger();
    settle();
    QCOMPARE(LWDefaults::shared()->boolForKey(QStringLiteral("LW_Sidebar")), !before);
    QCOMPARE(driver->delegate->window()->outline()->isVisible(), !before);
    QCOMPARE(preferences->findChild<QCheckBox *>(QStringLiteral("LW_Sidebar"))->isChecked(), !before);
    menuItem(QStringLiteral("toggleSidebarAction"))->trigger();
    settle();
    QCOMPARE(driver->delegate->window()->outline()->isVisible(), before);
    preferences->close();
}

void TestPreferences::sheetAppliesOnlyWhatChanged()
{
    resetPageCalls();
    auto *sheet = openWith<PreferencesSheet>(Qt::Key_Comma, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(sheet);
    sheet->selectPage(QStringLiteral("Advanced"));
    auto *gutter = sheet->findChild<QCheckBox *>(QStringLiteral("LW_Gutter"));
    gutter->click();
    gutter->click();
    auto *tabSize = sheet->findChild<QSpinBox *>(QStringLiteral("LW_TabSize"));
    tabSize->stepUp();
    tabSize->stepDown();
    const bool invisibles = LWDefaults::shared()->boolForKey(QStringLiteral("LW_Invisibles"));
    sheet->findChild<QCheckBox *>(QStringLiteral("LW_Invisibles"))->click();
    settle();
    QCOMPARE(pageCalls(QStringLiteral("toggleInvisibles")), 0);
    sheet->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close)->click();
    QVERIFY(calledOnce(QStringLiteral("toggleInvisibles")));
    QCOMPARE(pageCalls(QStringLiteral("toggleGutter")), 0);
    QCOMPARE(pageCalls(QStringLiteral("setTabSize")), 0);
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.renderer.getShowInvisibles())")),
             invisibles ? QStringLiteral("false") : QStringLiteral("true"));
}

void TestPreferences::resetAsksFirst()
{
    LWDefaults::shared()->setInteger(QStringLiteral("LW_TabSize"), 2);
    menuItem(QStringLiteral("resetDefaults"))->trigger();
    QVERIFY(driver->answer(QStringLiteral("Cancel")));
    QCOMPARE(LWDefaults::shared()->integerForKey(QStringLiteral("LW_TabSize")), 2);

    menuItem(QStringLiteral("resetDefaults"))->trigger();
    QVERIFY(driver->answer(QStringLiteral("OK")));
    QCOMPARE(LWDefaults::shared()->integerForKey(QStringLiteral("LW_DoAtStartup")), 1);
    QTRY_COMPARE(driver->page(QStringLiteral("String(lw.editor.session.getTabSize())")), QStringLiteral("4"));
    QCOMPARE(driver->page(QStringLiteral("String(lw.editor.renderer.getShowGutter())")), QStringLiteral("true"));
    QTRY_COMPARE(driver->page(QStringLiteral("String(lw.editor.getFontSize())")), QStringLiteral("14"));
    QVERIFY(driver->delegate->window()->outline()->isVisible());
}

void TestPreferences::launcherIsInstalledOnce()
{
    const QString target = QDir::homePath() + QStringLiteral("/.local/bin/lwood");
    menuItem(QStringLiteral("installShellSupport"))->trigger();
    QMessageBox *installed = driver->question();
    QVERIFY(installed);
    QCOMPARE(installed->text(), QStringLiteral("lwood installed"));
    QVERIFY(driver->answer(QStringLiteral("OK")));
    QVERIFY(QFileInfo(target).isExecutable());
    QVERIFY(LWDefaults::shared()->boolForKey(QStringLiteral("LW_ShellInstalled")));

    QFile mine(target);
    QVERIFY(mine.open(QIODevice::WriteOnly | QIODevice::Truncate));
    mine.write("#!/bin/sh\n# my own\n");
    mine.close();
    menuItem(QStringLiteral("installShellSupport"))->trigger();
    QCOMPARE(driver->question()->text(), QStringLiteral("lwood is already installed"));
    QVERIFY(driver->answer(QStringLiteral("OK")));
    QVERIFY(mine.open(QIODevice::ReadOnly));
    QCOMPARE(mine.readAll(), QByteArray("#!/bin/sh\n# my own\n"));
    mine.close();

    // Opening the window corrects the record from the file's presence.
    QVERIFY(mine.remove());
    auto *preferences = openWith<LWMasterPreferences>(Qt::Key_Comma, Qt::ControlModifier);
    QVERIFY(preferences);
    QVERIFY(!LWDefaults::shared()->boolForKey(QStringLiteral("LW_ShellInstalled")));
    preferences->selectPage(QStringLiteral("Pro"));
    preferences->findChild<QPushButton *>(QStringLiteral("installShellSupport"))->click();
    QVERIFY(driver->answer(QStringLiteral("OK")));
    QVERIFY(QFileInfo(target).isExecutable());
    QCOMPARE(preferences->findChild<QLabel *>(QStringLiteral("shellSupportState"))->text(),
             QStringLiteral("Installed as %1").arg(target));
    preferences->close();
}

LW_WEB_TEST_MAIN(TestPreferences)
#include "tst_Preferences.moc"
