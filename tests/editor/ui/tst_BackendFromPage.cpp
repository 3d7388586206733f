#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "editor/ui/LWUtilityWebViewController.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

// Every backend operation that answers a page by running a script in a page,
// called from the real editor page through "core" in the real window: each
// completes (effect and answer) within a few seconds, while the page's timer
// and the window's event loop keep running. The test environment aborts the
// run if anything waits on a page inside a page's call.
class TestBackendFromPage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void scriptsAndProcessesAnswerThePage();
    void dialogsAnswerThePage();
    void utilityEditorAndPluginMenu();
    void writingAnOpenDocumentTellsThePage();

private:
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    // Runs script in the page and waits, answering dialogs as a user would,
    // until done (a page expression) is true; checks that neither the page's
    // timer nor the window stalled meanwhile.
    void callAndWait(const QString &script, const QString &done);
    void answerOpenDialogs();
    QString writeFile(const QString &name, const QByteArray &bytes);

    std::unique_ptr<WindowDriver> window;
    LWAppDelegate *delegate = nullptr;
    QTemporaryDir folder;
};

void TestBackendFromPage::initTestCase()
{
    window = std::make_unique<WindowDriver>();
    QVERIFY(window->start());
    delegate = window->delegate.get();
    page(QStringLiteral("window.ticks = 0; setInterval(function () { window.ticks++; }, 20); ''"));
}

void TestBackendFromPage::cleanupTestCase()
{
    window.reset();
}

QString TestBackendFromPage::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return path;
}

void TestBackendFromPage::answerOpenDialogs()
{
    for (QDialog *dialog : delegate->window()->findChildren<QDialog *>()) {
        if (!dialog->isVisible())
            continue;
        if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            box->defaultButton() ? box->defaultButton()->click() : box->buttons().first()->click();
            continue;
        }
        if (auto *field = dialog->findChild<QLineEdit *>())
            field->setText(QStringLiteral("typed 'text'"));
        if (auto *slider = dialog->findChild<QSlider *>())
            slider->setValue(slider->maximum());
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    }
}

void TestBackendFromPage::callAndWait(const QString &script, const QString &done)
{
    const int ticksBefore = page(QStringLiteral("String(window.ticks)")).toInt();
    QElapsedTimer sinceLastTurn;
    qint64 longestStall = 0;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        longestStall = std::max(longestStall, sinceLastTurn.restart());
    });
    sinceLastTurn.start();
    watch.start(10);

    page(script + QStringLiteral("; ''"));
    QElapsedTimer clock;
    clock.start();
    bool finished = false;
    while (!finished && clock.elapsed() < 5000) {
        QTest::qWait(30);
        answerOpenDialogs();
        finished = page(QStringLiteral("String(!!(%1))").arg(done)) == QLatin1String("true");
    }
    QVERIFY2(finished, qPrintable(QStringLiteral("no effect within 5 s: ") + done));
    QVERIFY2(longestStall < 1000, qPrintable(QStringLiteral("the window stalled for %1 ms").arg(longestStall)));
    QVERIFY(page(QStringLiteral("String(window.ticks)")).toInt() > ticksBefore);
}

void TestBackendFromPage::scriptsAndProcessesAnswerThePage()
{
    const QString script = writeFile(QStringLiteral("plain.js"), "window.imported = 'js';");
    callAndWait(QStringLiteral("core.importjs_('%1')").arg(script), QStringLiteral("window.imported === 'js'"));
    const QString coffee = writeFile(QStringLiteral("sweet.coffee"), "window.imported = 'coffee'\n");
    callAndWait(QStringLiteral("core.importjs_('%1')").arg(coffee), QStringLiteral("window.imported === 'coffee'"));

    callAndWait(QStringLiteral("core.execute_args_callback_('/bin/echo', '[\"it\\'s\"]', 'window.ran = %@')"),
                QStringLiteral("window.ran && window.ran[0] === \"it's\\n\""));
    callAndWait(QStringLiteral("core.execute_args_('echo', '[\"echoed-$((6 + 1))\"]')"),
                QStringLiteral("$('.terminal-output').text().indexOf('echoed-7') >= 0"));
    callAndWait(QStringLiteral("core.terminalExec_env_action_completed_('[\"printf\", \"session\"]', '', '', "
                               "'window.session = \"%@\"')"),
                QStringLiteral("window.session === 'session'"));
    callAndWait(QStringLiteral("Bridge.call('exec_', ['[\"/bin/sh\", \"-c\", \"sleep 2; echo slept\"]'])"
                               ".then(function (out) { window.slept = out; })"),
                QStringLiteral("window.slept === 'slept\\n'"));
    callAndWait(QStringLiteral("Bridge.call('terminalExec_env_action_completed_', ['[\"printf\", \"direct\"]', '', '', ''])"
                               ".then(function (out) { window.direct = out; })"),
                QStringLiteral("window.direct === 'direct'"));
}

void TestBackendFromPage::dialogsAnswerThePage()
{
    callAndWait(QStringLiteral("core.inputDialogWithTitle_default_callback_('Name', 'none', 'window.named = \"%@\"')"),
                QStringLiteral("window.named === \"typed 'text'\""));
    callAndWait(QStringLiteral("core.input_callback_('Name', 'window.input = \"%@\"')"),
                QStringLiteral("window.input === \"typed 'text'\""));
    callAndWait(QStringLiteral("core.dialogInput_callback_('Name', 'window.dialogInput = \"%@\"')"),
                QStringLiteral("window.dialogInput === \"typed 'text'\""));
    callAndWait(QStringLiteral("core.alertDialogWithTitle_information_callback_('Heads up', 'Text', 'window.alerted = 1')"),
                QStringLiteral("window.alerted === 1"));
    callAndWait(QStringLiteral("core.dialogAlert_info_callback_('Heads up', 'Text', 'window.dismissed = 1')"),
                QStringLiteral("window.dismissed === 1"));
    callAndWait(QStringLiteral("core.confirmDialogWithTitle_information_callback_('Sure?', 'Text', 'window.confirmed = %d')"),
                QStringLiteral("window.confirmed === 1"));
    callAndWait(QStringLiteral("core.slider_min_max_val_change_callback_('Size', 0, 10, 5, 'window.moved = %f', "
                               "'window.slid = %f')"),
                QStringLiteral("window.moved === 10 && window.slid === 10"));
}

void TestBackendFromPage::utilityEditorAndPluginMenu()
{
    callAndWait(QStringLiteral("core.loadEditorUtility_label_mode_('shown \\'here\\'', 'Output', 'python')"),
                QStringLiteral("true"));
    QTRY_COMPARE_WITH_TIMEOUT(delegate->evaluateInUtility(QStringLiteral("lw.editor.getValue()")),
                              QStringLiteral("shown 'here'"), 10000);
    QTRY_COMPARE(delegate->evaluateInUtility(QStringLiteral("lw.getMode()")), QStringLiteral("python"));
    // The same mode again only replaces the text.
    callAndWait(QStringLiteral("core.loadEditorUtility_label_mode_('second', 'Output', 'python')"), QStringLiteral("true"));
    QTRY_COMPARE_WITH_TIMEOUT(delegate->evaluateInUtility(QStringLiteral("lw.editor.getValue()")),
                              QStringLiteral("second"), 10000);

    callAndWait(QStringLiteral("$Core.currentPlugin = { menu: function () { return { 'Go on': function () "
                               "{ window.menuItem = 'clicked'; } }; } }; core.utilityViewMenuItemClicked_('Go on')"),
                QStringLiteral("window.menuItem === 'clicked'"));
}

void TestBackendFromPage::writingAnOpenDocumentTellsThePage()
{
    const QString path = writeFile(QStringLiteral("open.txt"), "before");
    const LWDocument::Ptr document = LWDocument::fileFromPath(path);
    delegate->documentManager()->documentTree().filesGroup()->addChildDocument(document);
    delegate->documentManager()->switchToDoc(document);
    QTRY_COMPARE(page(QStringLiteral("lw.editor.getValue()")), QStringLiteral("before"));
    callAndWait(QStringLiteral("$Events.on('documentSaved', function () { window.saved = true; }); "
                               "core.document_write_('%1', 'after')").arg(path),
                QStringLiteral("window.saved === true"));
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("after"));
}

LW_WEB_TEST_MAIN(TestBackendFromPage)
#include "tst_BackendFromPage.moc"
