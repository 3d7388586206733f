#include "app/LWDefaults.h"
#include "app/LWPaths.h"
#include "documents/LWDocumentManager.h"
#include "editor/CallbackFormat.h"
#include "editor/LWBackend.h"
#include "support/RecordingShell.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

// The backend's operations against the recording shell, real files and real
// child processes.
class TestBackend : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void callbackFormatsFillOneDirective();
    void temporaryFilesAndInterpreterIndex();
    void dialogsFillTheirCallbacks();
    void utilityLoadsAndPluginMenu();
    void importedScriptsRunGuarded();
    void pageSettingsAndStatus();
    void documentsFollowTheCurrentOne();
    void processesReportTheirOutput();

private:
    QString writeFile(const QString &name, const QByteArray &bytes);

    std::unique_ptr<RecordingShell> shell;
    std::unique_ptr<LWBackend> backend;
    QTemporaryDir folder;
};

void TestBackend::init()
{
    shell.reset();
    shell = std::make_unique<RecordingShell>();
    backend = std::make_unique<LWBackend>();
}

QString TestBackend::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return path;
}

void TestBackend::callbackFormatsFillOneDirective()
{
    QCOMPARE(CallbackFormat::filled(QStringLiteral("done('%@', '%@')"), QStringLiteral("a")),
             QStringLiteral("done('a', '%@')"));
    QCOMPARE(CallbackFormat::filled(QStringLiteral("set(%f) // 100%%"), 0.5), QStringLiteral("set(0.500000) // 100%"));
    QCOMPARE(CallbackFormat::filled(QStringLiteral("ok(%ld)"), 1), QStringLiteral("ok(1)"));
    QCOMPARE(CallbackFormat::filled(QStringLiteral("ok(%d, %@)"), 0), QStringLiteral("ok(0, %@)"));
    QCOMPARE(CallbackFormat::filled(QStringLiteral("plain()"), QStringLiteral("x")), QStringLiteral("plain()"));
    QCOMPARE(CallbackFormat::filled(QStringLiteral("odd(%"), QStringLiteral("x")), QStringLiteral("odd(%"));
}

void TestBackend::temporaryFilesAndInterpreterIndex()
{
    const QString path = backend->getTempFile_withExtension_(QStringLiteral("é\r\n\"x\""), QStringLiteral("md"));
    QCOMPARE(QFileInfo(path).absolutePath(), LWPaths::dataPath(QStringLiteral("Data/Temp")));
    QVERIFY(QRegularExpression(QStringLiteral("^\\d{1,4}\\.md$")).match(QFileInfo(path).fileName()).hasMatch());
    QCOMPARE(backend->file_(path), QStringLiteral("é\r\n\"x\""));
    QVERIFY(backend->getTempFile_withExtension_(QStringLiteral("x"), QStringLiteral("/../../escape")).isEmpty());
    QVERIFY(backend->file_(folder.filePath(QStringLiteral("missing"))).isEmpty());

    const QVariantMap index = QJsonDocument::fromJson(backend->getBinariesIndex().toUtf8()).toVariant().toMap();
    const QString base = LWPaths::dataRoot() + QLatin1Char('/');
    QCOMPARE(index.value(QStringLiteral("node")).toString(), base + QStringLiteral("Data/Bin/node/bin/node"));
    QCOMPARE(index.value(QStringLiteral("clojure")).toString(), base + QStringLiteral("Data/Bin/clojure/clojure.jar"));
    QCOMPARE(index.value(QStringLiteral("lua")).toString(), base + QStringLiteral("Data/Bin/lua/lua"));
    QCOMPARE(index.value(QStringLiteral("typescript")).toString(),
             base + QStringLiteral("Data/Bin/node/lib/node_modules/typescript/bin/tsc.js"));
}

void TestBackend::dialogsFillTheirCallbacks()
{
    backend->input_callback_(QStringLiteral("Name"), QStringLiteral("got('%@')"));
    QVERIFY(shell->editorScripts.isEmpty());

    shell->inputAnswer = QStringLiteral("it's a \\ \"test\"\n");
    backend->inputDialogWithTitle_default_callback_(QStringLiteral("Name"), QStringLiteral("hint"),
                                                    QStringLiteral("got('%@')"));
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("^---> got")));
    backend->input_callback_(QStringLiteral("Name"), QStringLiteral("got('%@')"));
    QCOMPARE(shell->inputs.value(1), qMakePair(QStringLiteral("Name"), QStringLiteral("hint")));
    QCOMPARE(shell->inputs.value(2).second, QString());
    QCOMPARE(shell->editorScripts, QStringList(2, QStringLiteral("got('it\\'s a \\\\ \\\"test\\\"\\n')")));

    shell->editorScripts.clear();
    shell->confirmationAnswer = 0;
    backend->confirmDialogWithTitle_information_callback_(QStringLiteral("Sure?"), QString(), QStringLiteral("c(%d)"));
    backend->dialogAlert_info_callback_(QStringLiteral("Done"), QStringLiteral("info"), QStringLiteral("after()"));
    backend->dialogAlert_info_callback_(QStringLiteral("Plain"), QStringLiteral("info"), QString());
    shell->sliderAnswer = 2.5;
    backend->slider_min_max_val_change_callback_(QStringLiteral("Size"), 1, 5, 3, QStringLiteral("moved(%f)"),
                                                 QStringLiteral("chose(%f)"));
    backend->slider_min_max_val_callback_(QStringLiteral("Size"), 1, 5, 3, QStringLiteral("chose(%f)"));
    QCOMPARE(shell->editorScripts,
             QStringList({QStringLiteral("c(0)"), QStringLiteral("after()"), QStringLiteral("moved(2.500000)"),
                          QStringLiteral("chose(2.500000)"), QStringLiteral("chose(2.500000)")}));
    QCOMPARE(shell->alerts.last(), qMakePair(QStringLiteral("Plain"), QStringLiteral("info")));
}

void TestBackend::utilityLoadsAndPluginMenu()
{
    const QString page = writeFile(QStringLiteral("page.html"), "<p>x</p>");
    backend->loadUtility_label_(QStringLiteral("<b>not a path</b>"), QStringLiteral("Shown"));
    backend->loadUtility_label_(page, QStringLiteral("File"));
    backend->loadUtility_label_cookies_(page, QStringLiteral("Cookies"),
                                        QStringLiteral("[{\"name\": \"a\"}, /* second */ {\"name\": \"b\"}]"));
    backend->loadUtility_label_cookies_(page, QStringLiteral("Broken"), QStringLiteral("[{"));
    backend->loadHtml_label_withBasePath_(QStringLiteral("<i>"), QStringLiteral("Based"), QStringLiteral("lib/"));
    backend->loadEditorUtility_label_mode_(QStringLiteral("text"), QStringLiteral("Copy"), QStringLiteral("python"));
    const QList<QPair<QString, QString>> expected = {
        {QStringLiteral("<b>not a path</b>"), QString()},
        {QStringLiteral("file:") + page, QStringLiteral("0")},
        {QStringLiteral("file:") + page, QStringLiteral("2")},
        {QStringLiteral("file:") + page, QStringLiteral("0")},
        {QStringLiteral("<i>"), QStringLiteral("lib/")},
        {QStringLiteral("editor:text"), QStringLiteral("python")},
    };
    QCOMPARE(shell->utilityLoads, expected);
    QCOMPARE(shell->utilityLabel, QStringLiteral("Copy"));
    QVERIFY(shell->utilityVisible);

    backend->registerPluginMenu_(QStringLiteral("[\"Run\", \"Stop\"]"));
    QCOMPARE(shell->utilityPluginMenu, QStringList({QStringLiteral("Run"), QStringLiteral("Stop")}));
    backend->registerPluginMenu_(QStringLiteral("[]"));
    QVERIFY(shell->utilityPluginMenu.isEmpty());
    backend->registerPluginMenu_(QStringLiteral("[\"Run\""));
    QVERIFY(shell->utilityPluginMenu.isEmpty());

    backend->utilityViewMenuItemClicked_(QStringLiteral("Don't"));
    QCOMPARE(shell->editorScripts, QStringList{QStringLiteral("$Core.currentPlugin.menu()['Don\\'t']()")});
}

void TestBackend::importedScriptsRunGuarded()
{
    backend->importjs_(folder.filePath(QStringLiteral("missing.js")));
    backend->importjs_(writeFile(QStringLiteral("a.js"), "var a = '1';"));
    backend->importjs_(writeFile(QStringLiteral("b.coffee"), "x = \"q\"\ny = 2"));
    QCOMPARE(shell->editorScripts,
             QStringList({QStringLiteral("try { var a = '1'; } catch (err) { $Terminal.echo(inspectObject(err)) }"),
                          QStringLiteral("$Core.coffee([\"x = \\\"q\\\"\\ny = 2\"],true,true);")}));
}

void TestBackend::pageSettingsAndStatus()
{
    LWDefaults *defaults = LWDefaults::shared();
    backend->searchOptChanged_withValue_(QStringLiteral("LW_Search_Case"), true);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("not a search option")));
    backend->searchOptChanged_withValue_(QStringLiteral("LW_DoAtStartup"), true);
    backend->panelToggled_(false);
    QCOMPARE(defaults->objectForKey(QStringLiteral("LW_Search_Case")).toInt(), 1);
    QVERIFY(!defaults->hasKey(QStringLiteral("LW_DoAtStartup")) || !defaults->boolForKey(QStringLiteral("LW_DoAtStartup")));
    QCOMPARE(defaults->objectForKey(QStringLiteral("LW_Panel")).toInt(), 0);

    backend->currentLocationChanged_(QStringLiteral("12:4"));
    QCOMPARE(shell->locationText, QStringLiteral("12:4"));
    backend->showStatus_(QStringLiteral("Busy"));
    QVERIFY(shell->spinnerRunning);
    backend->hideStatus();
    QCOMPARE(shell->statusMessages, QStringList({QStringLiteral("Busy"), QString()}));
    QVERIFY(!shell->spinnerRunning);
}

void TestBackend::documentsFollowTheCurrentOne()
{
    QVERIFY(backend->getFullPath().isEmpty());
    const QString path = writeFile(QStringLiteral("open.txt"), "old");
    std::unique_ptr<LWDocumentManager> manager = LWDocumentManager::newWithUntitled();
    LWDocumentManager::setShared(manager.get());
    const LWDocument::Ptr open = LWDocument::fileFromPath(path);
    manager->documentTree().filesGroup()->addChildDocument(open);
    manager->setCurrentDocument(open);
    const LWDocument::Ptr current = manager->currentDocument();
    current->setSaved(true);

    QCOMPARE(backend->getLabel(), QStringLiteral("open.txt"));
    QCoreApplication::processEvents();
    backend->currentDocumentChanged();
    QVERIFY(!current->saved());
    QTRY_VERIFY(shell->calls.contains(QStringLiteral("outline reload")));
    shell->calls.clear();
    backend->currentDocumentChanged();
    QTest::qWait(20);
    QVERIFY(shell->calls.isEmpty());

    backend->document_write_(path, QStringLiteral("new"));
    QCOMPARE(backend->file_(path), QStringLiteral("new"));
    const QString created = folder.filePath(QStringLiteral("made.txt"));
    backend->document_write_(created, QStringLiteral("made"));
    QCOMPARE(backend->file_(created), QStringLiteral("made"));
    QVERIFY(manager->documentTree().documentWithFullPath(created));
    QTRY_VERIFY(shell->calls.contains(QStringLiteral("outline reload")));
    LWDocumentManager::setShared(nullptr);
}

void TestBackend::processesReportTheirOutput()
{
    QCOMPARE(backend->exec_(QStringLiteral("[\"/usr/bin/printf\", \"%s\", \"hi\"]")).result(), QStringLiteral("hi"));
    QCOMPARE(backend->exec_env_(QStringLiteral("[\"/usr/bin/printenv\", \"LW_X\"]"), QStringLiteral("{\"LW_X\": \"v\"}"))
                 .result(),
             QStringLiteral("v\n"));

    backend->execute_args_callback_(QStringLiteral("/bin/echo"), QStringLiteral("[\"a'b\"]"), QStringLiteral("out(%@)"));
    QTRY_COMPARE(shell->editorScripts, QStringList{QStringLiteral("out([\"a'b\\n\"])")});
    QCOMPARE(shell->statusMessages.value(0), QStringLiteral("Running..."));
    QVERIFY(!shell->spinnerRunning);

    shell->editorScripts.clear();
    backend->execute_args_(QStringLiteral("echo"), QStringLiteral("[\"\\\"it's\\\"\"]"));
    QTRY_COMPARE(shell->editorScripts, QStringList{QStringLiteral("lw.echo('it\\'s\\n');")});
    QCOMPARE(shell->statusMessages.last(), QString());
}

QTEST_MAIN(TestBackend)
#include "tst_LWBackend.moc"
