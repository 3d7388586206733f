#include "app/LWDefaults.h"
#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "editor/LWViewMenuController.h"
#include "editor/ui/LWUtilityWebViewController.h"
#include "editor/ui/LWWebViewController.h"
#include "extensions/LWBundle.h"
#include "support/ProcessTable.h"
#include "support/WebTestMain.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QWebEngineView>
#include <QtTest>

// The whole application on the real editor page: the page reaches the
// backend through "core", menu actions change the real editor, and a
// terminal command's output arrives in the page's terminal, the keyboard
// moves between editor and terminal, and quitting ends running commands.
class TestAppDelegate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void startsWithAnUntitledDocument();
    void pageCallsReachTheBackend();
    void pageAnswersReachThePage();
    void utilityContentFromThePage();
    void menuTogglesChangeTheEditor();
    void themeAndLanguageItemsSwitchTheEditor();
    void terminalOutputArrivesInTheTerminal();
    void keyboardMovesBetweenEditorAndTerminal();
    void quittingEndsRunningCommands();

private:
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    // Runs a core call from the page whose promise stores its answer; waits for it.
    QString pageAnswer(const QString &call);
    bool windowShowsText(const QString &text) const;
    QString terminalText() { return page(QStringLiteral("$('.terminal-output').text().replace(/\\u00a0/g, ' ')")); }
    void pressTerminalShortcut() { QTest::keyClick(delegate->window(), Qt::Key_QuoteLeft, Qt::ControlModifier); }

    std::unique_ptr<LWAppDelegate> delegate;
};

void TestAppDelegate::initTestCase()
{
    delegate = std::make_unique<LWAppDelegate>(QStringList());
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("typeof core")), QStringLiteral("object"), 20000);
}

void TestAppDelegate::cleanupTestCase()
{
    delegate.reset();
}

QString TestAppDelegate::pageAnswer(const QString &call)
{
    page(QStringLiteral("window.__answer = null; Promise.resolve(Bridge.call(%1)).then(function (a) "
                        "{ window.__answer = String(a); }); ''")
             .arg(call));
    QString answer;
    for (int waited = 0; waited < 10000 && answer.isEmpty(); waited += 50) {
        QTest::qWait(50);
        answer = page(QStringLiteral("window.__answer"));
    }
    return answer;
}

bool TestAppDelegate::windowShowsText(const QString &text) const
{
    const QList<QLabel *> labels = delegate->window()->findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(), [&](QLabel *label) { return label->text() == text; });
}

void TestAppDelegate::startsWithAnUntitledDocument()
{
    const LWDocument::Ptr current = delegate->documentManager()->currentDocument();
    QVERIFY(current);
    QVERIFY(current->isUntitled());
    QCOMPARE(current, delegate->documentManager()->documentTree().filesGroup()->children().front());
    QCOMPARE(delegate->window()->windowTitle(), current->label());
    QCOMPARE(page(QStringLiteral("lw.editor.getValue()")), QString());
}

void TestAppDelegate::pageCallsReachTheBackend()
{
    page(QStringLiteral("core.currentLocationChanged_('Line 7, Column 2');"
                        "core.searchOptChanged_withValue_('LW_Search_Whole_Word', true);"
                        "core.showStatus_('Checking');"
                        "core.registerPluginMenu_('[\"First\", \"Second\"]'); ''"));
    QTRY_VERIFY(windowShowsText(QStringLiteral("Line 7, Column 2")));
    QTRY_VERIFY(LWDefaults::shared()->boolForKey(QStringLiteral("LW_Search_Whole_Word")));
    QTRY_VERIFY(windowShowsText(QStringLiteral("Checking")));
    const QList<QToolButton *> buttons = delegate->window()->findChildren<QToolButton *>();
    QTRY_VERIFY(std::any_of(buttons.begin(), buttons.end(), [](QToolButton *button) {
        return button->text() == QLatin1String("Plugin") && !button->isHidden()
            && button->menu()->actions().size() == 3;
    }));

    page(QStringLiteral("lw.editor.setValue('typed'); ''"));
    QTRY_VERIFY(!delegate->documentManager()->currentDocument()->saved());
    QTRY_COMPARE(delegate->window()->outline()->selected(), delegate->documentManager()->currentDocument());
}

void TestAppDelegate::pageAnswersReachThePage()
{
    const QString path = pageAnswer(QStringLiteral("'getTempFile_withExtension_', ['it\\'s \\u00e9\\r\\n', 'txt']"));
    QVERIFY2(path.endsWith(QLatin1String(".txt")), qPrintable(path));
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(written.readAll()), QStringLiteral("it's é\r\n"));
    QCOMPARE(pageAnswer(QStringLiteral("'file_', [%1]").arg(QStringLiteral("'") + path + QStringLiteral("'"))),
             QStringLiteral("it's é\r\n"));
    QVERIFY(pageAnswer(QStringLiteral("'getBinariesIndex', []")).contains(QLatin1String("\"node\"")));
    QCOMPARE(pageAnswer(QStringLiteral("'exec_', ['[\"/bin/echo\", \"ran\"]']")), QStringLiteral("ran\n"));
}

void TestAppDelegate::utilityContentFromThePage()
{
    QSignalSpy loaded(delegate->utilityWebView(), &LWUtilityWebViewController::pageLoaded);
    page(QStringLiteral("core.loadUtilityHtml_label_('<p id=\"shown\">from the page</p>', 'Preview'); ''"));
    QVERIFY(loaded.wait(20000));
    QVERIFY(delegate->isUtilityViewVisible());
    QVERIFY(windowShowsText(QStringLiteral("Preview")));
    QCOMPARE(delegate->evaluateInUtility(QStringLiteral("document.getElementById('shown').textContent")),
             QStringLiteral("from the page"));
}

void TestAppDelegate::menuTogglesChangeTheEditor()
{
    auto *view = delegate->window()->findChild<QAction *>(QStringLiteral("toggleGutterAction"));
    QVERIFY(view);
    const bool before = page(QStringLiteral("String(lw.editor.renderer.getShowGutter())")) == QLatin1String("true");
    view->trigger();
    QCOMPARE(page(QStringLiteral("String(lw.editor.renderer.getShowGutter())")),
             before ? QStringLiteral("false") : QStringLiteral("true"));
    QCOMPARE(LWDefaults::shared()->boolForKey(QStringLiteral("LW_Gutter")), !before);
    view->trigger();
    QCOMPARE(page(QStringLiteral("String(lw.editor.renderer.getShowGutter())")),
             before ? QStringLiteral("true") : QStringLiteral("false"));
}

void TestAppDelegate::themeAndLanguageItemsSwitchTheEditor()
{
    delegate->updateThemesMenu();
    QMenu *themes = delegate->window()->menuBar()->findChild<QMenu *>(QStringLiteral("themesMenu"));
    QVERIFY(themes);
    const QList<QAction *> themeItems = themes->findChildren<QAction *>(QStringLiteral("setThemeAction"));
    QVERIFY(themeItems.size() > 1);
    QAction *themeItem = themeItems.at(1);
    const auto *theme = qobject_cast<LWBundle *>(themeItem->data().value<QObject *>());
    themeItem->trigger();
    QTRY_COMPARE(page(QStringLiteral("lw.editor.renderer.$themeId")),
                 QStringLiteral("ace/theme/") + theme->infoText(QStringLiteral("name")));
    QCOMPARE(LWDefaults::shared()->stringForKey(QStringLiteral("LW_Theme")), themeItem->text());

    const QList<QAction *> languages = delegate->window()->findChildren<QAction *>(QStringLiteral("setSpecAction"));
    const auto python = std::find_if(languages.begin(), languages.end(),
                                     [](QAction *item) { return item->text() == QLatin1String("Python"); });
    QVERIFY(python != languages.end());
    (*python)->trigger();
    QTRY_COMPARE(page(QStringLiteral("lw.editor.session.$modeId")), QStringLiteral("ace/mode/python"));
    QCOMPARE(delegate->documentManager()->currentDocument()->specName(), QStringLiteral("Python"));
    const QList<QToolButton *> buttons = delegate->window()->findChildren<QToolButton *>();
    QVERIFY(std::any_of(buttons.begin(), buttons.end(), [python](QToolButton *button) {
        return button->text() == QLatin1String("Python") && button->menu()
            && button->menu()->findChildren<QAction *>().contains(*python);
    }));
}

void TestAppDelegate::terminalOutputArrivesInTheTerminal()
{
    // The console shows spaces as no-break spaces; they are read back as spaces.
    page(QStringLiteral("$Terminal.exec('echo terminal-$((40 + 2)) \"it\\'s\"'); ''"));
    QTRY_VERIFY_WITH_TIMEOUT(page(QStringLiteral("$('.terminal-output').text().replace(/\\u00a0/g, ' ')")).contains(QLatin1String("terminal-42 it's")),
                             20000);
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.isRunning())")), QStringLiteral("false"), 20000);
}

void TestAppDelegate::keyboardMovesBetweenEditorAndTerminal()
{
    delegate->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(delegate->window()));
    page(QStringLiteral("lw.editor.setValue('', -1); lw.editor.focus(); ''"));
    pressTerminalShortcut();
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.hasFocus())")), QStringLiteral("true"), 5000);
    QWidget *typingTarget = QApplication::focusWidget();
    QVERIFY(typingTarget && delegate->webView()->view()->isAncestorOf(typingTarget));
    QTest::keyClicks(typingTarget, QStringLiteral("echo typed-$((6 * 7))"));
    QTest::keyClick(typingTarget, Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(terminalText().contains(QLatin1String("typed-42")), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.isRunning())")), QStringLiteral("false"), 20000);

    pressTerminalShortcut();
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("String($Terminal.hasFocus())")), QStringLiteral("false"), 5000);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("abc"));
    QTRY_COMPARE_WITH_TIMEOUT(page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("abc"), 5000);
    QVERIFY(!terminalText().contains(QLatin1String("abc")));
}

void TestAppDelegate::quittingEndsRunningCommands()
{
    QTemporaryDir scratch;
    const QString marker = scratch.filePath(QStringLiteral("started"));
    page(QStringLiteral("$Terminal.exec('sleep 1000 & sleep 1000 & touch %1; wait'); ''").arg(marker));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(marker), 20000);
    // A forked child shows as "sleep" only once it has started the program.
    QList<qint64> groups;
    QTRY_COMPARE_WITH_TIMEOUT((groups = ProcessTable::childGroupsRunning("sleep")).size(), 1, 10000);
    QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::liveMembers(groups.first()), 3, 10000);
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DoOnQuit"), 1);
    delegate->requestQuit();
    QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::liveMembers(groups.first()), 0, 5000);
}

LW_WEB_TEST_MAIN(TestAppDelegate)
#include "tst_LWAppDelegate.moc"
