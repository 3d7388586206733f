#include "extensions/LWEnvironment.h"
#include "support/RecordingShell.h"
#include "terminal/LWTerm.h"
#include "terminal/LWTerminalSession.h"
#include "terminal/WorkingFolderSentinel.h"

#include <QtTest>

// Shell sessions against real login bash: the working folder carried from one
// command to the next, the page callbacks, standard input and detaching.
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

    void killDetachesTheRunningSession()
    {
        RecordingShell shell;
        LWTerminalSession session;
        session.terminalExec(QStringLiteral("[\"bash\", \"-c\", \"sleep 0.5; echo late\"]"), QString(),
                             QStringLiteral("out('%@');"), QString());
        QVERIFY(session.termTask());
        session.terminalKill();
        QVERIFY(!session.termTask());
        QTest::qWait(200);
        QVERIFY(shell.editorScripts.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(shell.editorScripts.contains(QStringLiteral("window.setTerminalStdin(false);")), 10000);
        QCOMPARE(shell.editorScripts, QStringList{QStringLiteral("window.setTerminalStdin(false);")});
        QCOMPARE(shell.statusMessages.last(), QString());
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
