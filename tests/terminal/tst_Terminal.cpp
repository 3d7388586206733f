#include "app/LWPaths.h"
#include "extensions/LWEnvironment.h"
#include "terminal/LWTerminal.h"
#include "terminal/Terminal.h"

#include <QtTest>

// The process runner and the class-level runs, against real bash.
class TerminalTest : public QObject
{
    Q_OBJECT

    LWEnvironment registry;

    // Runs a command through asyncExec and gathers its chunks until it ends.
    static QStringList chunksOf(const QString &command, const QStringList &args = {})
    {
        Terminal terminal;
        QStringList chunks;
        terminal.asyncExec(command, args, [&chunks](const QString &chunk) { chunks.append(chunk); });
        [&terminal] { QTRY_VERIFY_WITH_TIMEOUT(!terminal.task(), 10000); }();
        return chunks;
    }

private slots:
    void initTestCase()
    {
        registry.setEnvPath(QStringLiteral("/usr/bin:/bin"));
        LWEnvironment::setShared(&registry);
    }
    void cleanupTestCase() { LWEnvironment::setShared(nullptr); }

    void argumentsAreJoinedUnquotedAndSplitByTheShell()
    {
        QCOMPARE(Terminal::commandLine(QStringLiteral("printf"), {QStringLiteral("'<%s>'"), QStringLiteral("a b")}),
                 QStringLiteral("printf '<%s>' a b"));
        QCOMPARE(chunksOf(QStringLiteral("printf"), {QStringLiteral("'<%s>'"), QStringLiteral("a b")}).join(QString()),
                 QStringLiteral("<a><b>"));
    }

    void chunksMixingTheProfileMessageAreDroppedWhole()
    {
        const QStringList chunks = chunksOf(QStringLiteral(
            "echo before; sleep 0.3; echo 'kept /etc/profile: Operation not permitted'; sleep 0.3; echo after"));
        QCOMPARE(chunks, (QStringList{QStringLiteral("before\n"), QStringLiteral("after\n")}));
    }

    void standardErrorIsDeliveredOncePerRun()
    {
        const QStringList chunks = chunksOf(QStringLiteral(
            "echo first >&2; sleep 0.3; echo second >&2; sleep 0.3; echo out"));
        QCOMPARE(chunks, (QStringList{QStringLiteral("first\n"), QStringLiteral("out\n")}));
    }

    void multiByteCharactersSplitAcrossReadsStayWhole()
    {
        const QString text = chunksOf(QStringLiteral("printf '\\xc3'; sleep 0.3; printf '\\xa9t\\xe2\\x82'; sleep 0.3; printf '\\xac\\n'"))
                                 .join(QString());
        QCOMPARE(text, QStringLiteral("\u00e9t\u20ac\n"));
    }

    void floodsArriveInSmallChunks()
    {
        Terminal terminal;
        qint64 total = 0;
        qsizetype largest = 0;
        terminal.asyncExec(QStringLiteral("head -c 33554432 /dev/zero | tr '\\0' a"), {}, [&](const QString &chunk) {
            total += chunk.size();
            largest = qMax(largest, chunk.size());
        });
        QTRY_VERIFY_WITH_TIMEOUT(!terminal.task(), 60000);
        QCOMPARE(total, qint64(33554432));
        QVERIFY2(largest <= (1 << 20), qPrintable(QString::number(largest)));
    }

    void startFailuresAreReported()
    {
        Terminal terminal;
        int calls = 0;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot start /no/such/program")));
        terminal.asyncExecReturn(QStringLiteral("/no/such/program"), {}, [&calls](const QString &) { ++calls; });
        QTRY_VERIFY(!terminal.task());
        QCOMPARE(calls, 0);
        QVERIFY(terminal.result().isEmpty());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Cannot start /no/such/program")));
        QCOMPARE(Terminal::getExec(QStringLiteral("/no/such/program"), {}), QString());
    }

    void returningRunCollectsEverythingOnce()
    {
        Terminal terminal;
        QStringList results;
        terminal.asyncExecReturn(QStringLiteral("/bin/bash"),
                                 {QStringLiteral("-c"), QStringLiteral("echo one; sleep 0.2; echo two")},
                                 [&results](const QString &all) { results.append(all); });
        QVERIFY(results.isEmpty());
        QTRY_COMPARE(results, QStringList{QStringLiteral("one\ntwo\n")});
        QVERIFY(terminal.result().isEmpty());
    }

    void classRunsCaptureOnlyWhatTheySay()
    {
        const QStringList args{QStringLiteral("-c"), QStringLiteral("echo out; echo err >&2")};
        QCOMPARE(Terminal::getExec(QStringLiteral("/bin/bash"), args), QStringLiteral("out\n"));
        QCOMPARE(LWTerminal::exec({QStringLiteral("bash"), QStringLiteral("-c"), QStringLiteral("echo err >&2; echo out")}),
                 QStringLiteral("out\nerr\n"));
    }

    void environmentIsReducedToPathAndEntries()
    {
        QCOMPARE(LWTerminal::exec({}), QStringLiteral("PATH=/usr/bin:/bin\n"));
        const QString withEntries = LWTerminal::exec({}, {{QStringLiteral("PATH"), QStringLiteral("/bin")},
                                                          {QStringLiteral("LANGUAGE"), QStringLiteral("x")}});
        QCOMPARE(withEntries.split(QLatin1Char('\n'), Qt::SkipEmptyParts),
                 (QStringList{QStringLiteral("LANGUAGE=x"), QStringLiteral("PATH=/bin")}));
    }

    void asynchronousClassRunStreamsThenCompletes()
    {
        QString streamed;
        QString completed;
        bool done = false;
        QCOMPARE(LWTerminal::exec({QStringLiteral("bash"), QStringLiteral("-c"), QStringLiteral("echo a; sleep 0.2; echo b")},
                                  [&streamed](const QString &chunk) { streamed += chunk; },
                                  [&](const QString &all) { completed = all; done = true; }),
                 QString());
        QTRY_VERIFY_WITH_TIMEOUT(done, 10000);
        QCOMPARE(streamed, QStringLiteral("a\nb\n"));
        QCOMPARE(completed, streamed);
    }

    void loginPathComesFromTheShippedScript()
    {
        const QString path = LWTerminal::getPath();
        QVERIFY2(path.endsWith(QLatin1Char('\n')) && path.contains(QStringLiteral("/bin")), qPrintable(path));
    }

    void interpreterShorthandsKeepTheirMappings()
    {
        // Stand-in interpreters that print how they were called.
        QTemporaryDir bin;
        for (const QString &name : {QStringLiteral("php"), QStringLiteral("ruby")}) {
            QFile program(bin.filePath(name));
            QVERIFY(program.open(QIODevice::WriteOnly));
            program.write("#!/bin/sh\necho \"$(basename \"$0\") $*\"\n");
            program.setPermissions(program.permissions() | QFileDevice::ExeOwner);
        }
        registry.setEnvPath(bin.path() + QStringLiteral(":/usr/bin:/bin"));
        const QString script = LWPaths::resourcePath(QStringLiteral("s"));
        QCOMPARE(LWTerminal::php(QStringLiteral("s"), QStringLiteral("d")), QStringLiteral("php -f %1 d\n").arg(script));
        QCOMPARE(LWTerminal::python(QStringLiteral("s"), QStringLiteral("d")), QStringLiteral("php %1 d\n").arg(script));
        QCOMPARE(LWTerminal::ruby(QStringLiteral("s"), QStringLiteral("d")), QStringLiteral("ruby %1 d\n").arg(script));
        QString background;
        LWTerminal::ruby(QStringLiteral("s"), QStringLiteral("d"), [&background](const QString &out) { background = out; });
        QThreadPool::globalInstance()->waitForDone();
        QCOMPARE(background, QStringLiteral("php -f %1 d\n").arg(script));
        registry.setEnvPath(QStringLiteral("/usr/bin:/bin"));
    }
};

QTEST_GUILESS_MAIN(TerminalTest)
#include "tst_Terminal.moc"
