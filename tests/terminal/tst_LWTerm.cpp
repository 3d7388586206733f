#include "documents/LWDocumentManager.h"
#include "extensions/LWEnvironment.h"
#include "support/ProcessTable.h"
#include "support/RecordingShell.h"
#include "terminal/LWTerm.h"
#include "terminal/LWTerminalSession.h"
#include "terminal/ProcessGroup.h"
#include "terminal/WorkingFolderSentinel.h"

#include <QtTest>

// Shell sessions against real login bash: the working folder carried from one
// command to the next and where the first one starts, the page callbacks,
// standard input, and stopping a command with everything it started.
class LWTermTest : public QObject
{
    Q_OBJECT

    LWEnvironment registry;

    // Runs one session to its end and answers everything it printed.
    static QString run(const QVariantList &words, QStringList *chunks = nullptr)
    {
        QString all;
        bool done = false;
        auto term = LWTerm::create();
        term->exec(words, {}, [chunks](const QString &chunk) { if (chunks) chunks->append(chunk); },
                   [&](const QString &output) { all = output; done = true; });
        [&] { QTRY_VERIFY_WITH_TIMEOUT(done, 10000); }();
        return all;
    }

    static QVariantList words(const QString &line) { return QVariant(line.split(QLatin1Char(' '))).toList(); }

    // Starts a shell whose command leaves two sleeping children; answers its
    // process group once all three run.
    static qint64 startSleepers(LWTerminalSession &session)
    {
        session.terminalExec(QStringLiteral("[\"eval\", \"sleep 1000 & sleep 1000\"]"), QString(),
                             QStringLiteral("out('%@');"), QString());
        const qint64 group = session.termTask()->task()->processId();
        [&] { QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::liveMembers(group), 3, 10000); }();
        return group;
    }

private slots:
    void init()
    {
        registry.setPwd(QString());
        LWEnvironment::setShared(&registry);
    }
    void cleanup() { LWEnvironment::setShared(nullptr); }

    void argumentsAreQuotedAndNullsDropped()
    {
        const QVariantList args{QStringLiteral("echo"), QVariant::fromValue(nullptr), QStringLiteral("say \"hi\""),
                                QStringLiteral("$HOME"), 7};
        QCOMPARE(LWTerm::sanitizedArgs(args),
                 (QStringList{QStringLiteral("\"echo\""), QStringLiteral("\"say \\\"hi\\\"\""),
                              QStringLiteral("\"$HOME\""), QStringLiteral("\"7\"")}));
        QCOMPARE(run(args), QStringLiteral("say \"hi\" %1 7\n").arg(qEnvironmentVariable("HOME")));
    }

    void changingFolderIsCarriedToTheNextCommand()
    {
        QStringList chunks;
        QCOMPARE(run(words(QStringLiteral("cd /tmp")), &chunks), QString());
        QCOMPARE(chunks.join(QString()), QString());
        QCOMPARE(registry.pwd(), QStringLiteral("/tmp"));
        QCOMPARE(run(words(QStringLiteral("pwd"))), QStringLiteral("/tmp\n"));
        QCOMPARE(WorkingFolderSentinel::folderPrefix(QStringLiteral("(null)")), QString());
    }

    void failingCommandKeepsTheFolder()
    {
        registry.setPwd(QStringLiteral("/tmp"));
        const QString output = run(words(QStringLiteral("cd /no/such/folder")));
        QVERIFY2(output.contains(QStringLiteral("No such file or directory")), qPrintable(output));
        QVERIFY(!output.contains(QStringLiteral(":::::")));
        QCOMPARE(registry.pwd(), QStringLiteral("/tmp"));
    }

    // Folder names and program output are data: neither quotes in a name nor
    // a printed look-alike of the folder line ever run as shell code.
    void folderTextNeverRunsAsCode()
    {
        QTemporaryDir parent;
        const QString witness = parent.filePath(QStringLiteral("ran"));
        const QString folder = parent.filePath(QStringLiteral("a\"b'c d"));
        QVERIFY(QDir().mkpath(folder));
        run({QStringLiteral("cd"), folder});
        QCOMPARE(registry.pwd(), folder);
        QCOMPARE(run(words(QStringLiteral("echo next"))), QStringLiteral("next\n"));
        QCOMPARE(run(words(QStringLiteral("pwd"))), folder + QLatin1Char('\n'));

        registry.setPwd(parent.path());
        // printf turns \044 into "$", so the command line itself holds none.
        const QString printed = QStringLiteral(":::::$(touch %1):::::\n").arg(witness);
        QCOMPARE(run({QStringLiteral("printf"), QStringLiteral(":::::\\044(touch %1):::::\\n").arg(witness)}), printed);
        QCOMPARE(registry.pwd(), parent.path());
        run(words(QStringLiteral("true")));
        QVERIFY(!QFileInfo::exists(witness));
    }

    void sessionReportsToThePageAndStatusBar()
    {
        RecordingShell shell;
        LWTerminalSession session;
        QCOMPARE(session.terminalExec(QStringLiteral("[\"printf\", \"it's\\\\n\"]"), QString(),
                                      QStringLiteral("$Terminal.echo('%@');"), QStringLiteral("done(\"%@\");"))
                     .result(),
                 QString());
        QCOMPARE(shell.statusMessages, QStringList{QStringLiteral("Running...")});
        QTRY_COMPARE_WITH_TIMEOUT(shell.editorScripts.size(), 3, 10000);
        QCOMPARE(shell.editorScripts, (QStringList{QStringLiteral("$Terminal.echo('it\\'s\\n');"),
                                                   QStringLiteral("window.setTerminalStdin(false);"),
                                                   QStringLiteral("done(\"it\\'s\\n\");")}));
        QCOMPARE(shell.statusMessages.last(), QString());
        QVERIFY(!shell.spinnerRunning);
    }

    void withoutCallbacksTheCommandRunsDirectly()
    {
        LWTerminalSession session;
        registry.setEnvPath(QStringLiteral("/usr/bin:/bin"));
        QTest::ignoreMessage(QtWarningMsg, "Environment entry BAD is not text; left out");
        QCOMPARE(session.terminalExec(QStringLiteral("[\"printenv\", \"ONLY\"]"),
                                      QStringLiteral("{\"ONLY\": \"x\", \"BAD\": [1]}"),
                                      QString(), QString())
                     .result(),
                 QStringLiteral("x\n"));
        QVERIFY(!session.termTask());
    }

    void standardInputTakesOneWrite()
    {
        RecordingShell shell;
        LWTerminalSession session;
        session.terminalExec(QStringLiteral("[\"cat\"]"), QString(), QString(), QStringLiteral("got('%@');"));
        session.terminalWrite(QStringLiteral("hello"));
        QTest::ignoreMessage(QtWarningMsg, "terminalWrite:: Exception: standard input is already closed");
        session.terminalWrite(QStringLiteral("again"));
        QTRY_VERIFY_WITH_TIMEOUT(shell.editorScripts.contains(QStringLiteral("got('hello');")), 10000);
    }

    void interruptKillsTheCommandAndWhatItStarted()
    {
        RecordingShell shell;
        LWTerminalSession session;
        const qint64 group = startSleepers(session);
        session.terminalKill();
        QVERIFY(!session.termTask());
        QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::liveMembers(group), 0, 5000);
        QTRY_COMPARE_WITH_TIMEOUT(shell.statusMessages.last(), QString(), 5000);
        // The page ends the command itself; nothing of it arrives later.
        QTest::qWait(100);
        QVERIFY(shell.editorScripts.isEmpty());
    }

    void aNewCommandReplacesTheRunningOne()
    {
        RecordingShell shell;
        LWTerminalSession session;
        const qint64 group = startSleepers(session);
        session.terminalExec(QStringLiteral("[\"echo\", \"next\"]"), QString(), QStringLiteral("out('%@');"), QString());
        QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::liveMembers(group), 0, 5000);
        QTRY_VERIFY_WITH_TIMEOUT(shell.editorScripts.contains(QStringLiteral("window.setTerminalStdin(false);")), 10000);
        QCOMPARE(shell.editorScripts, (QStringList{QStringLiteral("out('next\\n');"),
                                                   QStringLiteral("window.setTerminalStdin(false);")}));
    }

    void quittingKillsWhatFinishedCommandsLeftRunning()
    {
        RecordingShell shell;
        LWTerminalSession session;
        session.terminalExec(QStringLiteral("[\"eval\", \"sleep 1000 >/dev/null &\"]"), QString(), QString(),
                             QStringLiteral("done();"));
        const qint64 group = session.termTask()->task()->processId();
        QTRY_VERIFY_WITH_TIMEOUT(shell.editorScripts.contains(QStringLiteral("done();")), 10000);
        QCOMPARE(ProcessTable::liveMembers(group), 1);
        ProcessGroup::killAll();
        QTRY_COMPARE_WITH_TIMEOUT(ProcessTable::liveMembers(group), 0, 5000);
    }

    void firstCommandStartsInTheWorkspace()
    {
        QTemporaryDir scratch;
        const QString project = scratch.filePath(QStringLiteral("project"));
        const QString notes = scratch.filePath(QStringLiteral("notes"));
        QVERIFY(QDir().mkpath(project) && QDir().mkpath(notes));
        LWDocumentManager documents;
        LWDocumentManager::setShared(&documents);
        const auto pwdFromScratch = [this] {
            registry.setPwd(QString());
            return run(words(QStringLiteral("pwd"))).trimmed();
        };
        QCOMPARE(pwdFromScratch(), QDir::homePath());

        LWDocument::Ptr folder = LWDocument::createBare();
        folder->setType(LWDocument::Group);
        folder->setFullPath(project);
        documents.documentTree().addTopLevelGroup(folder);
        documents.setCurrentDocument(documents.documentTree().addEmpty()->children().front());
        QVERIFY(documents.currentDocument()->isUntitled());
        QCOMPARE(pwdFromScratch(), project);

        QFile file(notes + QStringLiteral("/todo.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        documents.setCurrentDocument(LWDocument::fileFromPath(file.fileName()));
        QCOMPARE(pwdFromScratch(), notes);
        // A folder left by an earlier command wins.
        QCOMPARE(run(words(QStringLiteral("pwd"))).trimmed(), notes);
        registry.setPwd(QStringLiteral("/tmp"));
        QCOMPARE(run(words(QStringLiteral("pwd"))).trimmed(), QStringLiteral("/tmp"));
        LWDocumentManager::setShared(nullptr);
    }

    void unparseableCommandReachesThePageAsAShellError()
    {
        RecordingShell shell;
        LWTerminalSession session;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("command array is not valid JSON")));
        session.terminalExec(QStringLiteral("[oops"), QString(), QString(), QStringLiteral("%@"));
        QTRY_COMPARE_WITH_TIMEOUT(shell.editorScripts.size(), 2, 10000);
        QVERIFY2(shell.editorScripts.last().contains(QStringLiteral("syntax error")), qPrintable(shell.editorScripts.last()));
    }
};

QTEST_GUILESS_MAIN(LWTermTest)
#include "tst_LWTerm.moc"
