#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QtTest>

// The lwood launcher script: how it turns its arguments into calls of the
// editor program (through a stand-in that records them), and, once the
// program forwards to a running editor, that "lwood -w" waits for it.
class TestLwood : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void argumentsBecomeProgramCalls_data();
    void argumentsBecomeProgramCalls();
    void badUseIsExplained();
    void waitsWhileTheEditorRuns();

private:
    // Runs lwood (copied out of the resource tree) in the scratch folder.
    QProcess *runLwood(const QStringList &arguments, const QProcessEnvironment &environment);
    QProcessEnvironment withStandIn();
    // The stand-in's recorded calls, one line each, in order of arrival.
    QStringList recordedCalls(int expected);

    std::unique_ptr<QTemporaryDir> scratch;
    QString lwood;
};

namespace {

// The built program, found from the resource folder as lwood itself finds it.
QString builtProgram()
{
    return QDir::cleanPath(qEnvironmentVariable("LARKWOOD_RESOURCES") + QStringLiteral("/../../bin/larkwood"));
}

}

void TestLwood::init()
{
    scratch = std::make_unique<QTemporaryDir>();
    QDir(scratch->path()).mkpath(QStringLiteral("tools"));
    lwood = scratch->filePath(QStringLiteral("tools/lwood"));
    QVERIFY(QFile::copy(qEnvironmentVariable("LARKWOOD_RESOURCES") + QStringLiteral("/Data/bin/lwood"), lwood));
    QFile::setPermissions(lwood, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile existing(scratch->filePath(QStringLiteral("named:7")));
    QVERIFY(existing.open(QIODevice::WriteOnly));
}

QProcessEnvironment TestLwood::withStandIn()
{
    const QString bin = scratch->filePath(QStringLiteral("bin"));
    QDir().mkpath(bin);
    QFile standIn(bin + QStringLiteral("/larkwood"));
    if (!standIn.exists()) {
        standIn.open(QIODevice::WriteOnly);
        standIn.write("#!/bin/sh\nfor a; do printf '[%s]' \"$a\"; done >> \"$LWOOD_RECORD.tmp$$\"\n"
                      "echo >> \"$LWOOD_RECORD.tmp$$\"\ncat \"$LWOOD_RECORD.tmp$$\" >> \"$LWOOD_RECORD\"\n");
        standIn.close();
        standIn.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LARKWOOD_RESOURCES"));
    environment.insert(QStringLiteral("PATH"), bin + QStringLiteral(":/usr/bin:/bin"));
    environment.insert(QStringLiteral("LWOOD_RECORD"), scratch->filePath(QStringLiteral("calls")));
    return environment;
}

QProcess *TestLwood::runLwood(const QStringList &arguments, const QProcessEnvironment &environment)
{
    auto *process = new QProcess(this);
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(scratch->path());
    process->start(QStringLiteral("/bin/sh"), QStringList{lwood} + arguments);
    return process;
}

QStringList TestLwood::recordedCalls(int expected)
{
    QStringList calls;
    for (int waited = 0; waited < 10000 && calls.size() < expected; waited += 50) {
        QTest::qWait(50);
        QFile record(scratch->filePath(QStringLiteral("calls")));
        if (record.open(QIODevice::ReadOnly))
            calls = QString::fromUtf8(record.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    return calls;
}

void TestLwood::argumentsBecomeProgramCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("files in one call") << QStringList{"a.txt", "two words.md", "-n.txt"}
                                       << QStringList{"[--][a.txt][two words.md][-n.txt]"};
    QTest::newRow("file and line") << QStringList{"src/main.c:42"} << QStringList{"[--line][42][--][src/main.c]"};
    QTest::newRow("files, then each line")
        << QStringList{"b.c:3", "plain", "c.c:9"}
        << QStringList{"[--][plain]", "[--line][3][--][b.c]", "[--line][9][--][c.c]"};
    QTest::newRow("not a line") << QStringList{"host:path", "x:", "named:7"}
                                << QStringList{"[--][host:path][x:][named:7]"};
    QTest::newRow("wait") << QStringList{"-w", "COMMIT_EDITMSG"} << QStringList{"[--wait][--][COMMIT_EDITMSG]"};
    QTest::newRow("wait at a line") << QStringList{"-w", "--", "-f:5"} << QStringList{"[--line][5][--wait][--][-f]"};
}

void TestLwood::argumentsBecomeProgramCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, calls);
    QProcess *process = runLwood(arguments, withStandIn());
    QVERIFY(process->waitForFinished(10000));
    QCOMPARE(process->exitCode(), 0);
    QCOMPARE(recordedCalls(calls.size()), calls);
}

void TestLwood::badUseIsExplained()
{
    QProcess *bare = runLwood({}, withStandIn());
    QVERIFY(bare->waitForFinished(10000));
    QCOMPARE(bare->exitCode(), 2);
    QVERIFY(bare->readAllStandardError().startsWith("Usage: lwood"));

    QProcessEnvironment noProgram = withStandIn();
    noProgram.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    QProcess *missing = runLwood({QStringLiteral("a.txt")}, noProgram);
    QVERIFY(missing->waitForFinished(10000));
    QCOMPARE(missing->exitCode(), 127);
    QVERIFY(missing->readAllStandardError().contains("larkwood program was not found"));
}

// The real editor runs; "lwood -w FILE" hands FILE over and waits until the
// editor is done with it (here: the editor quits).
void TestLwood::waitsWhileTheEditorRuns()
{
    const QString program = builtProgram();
    QVERIFY2(QFileInfo(program).isExecutable(), qPrintable(program));
    QProcess help;
    help.start(program, {QStringLiteral("--help")});
    QVERIFY(help.waitForFinished(20000));
    if (!help.readAllStandardOutput().contains("--wait"))
        QSKIP("this build of larkwood does not forward to a running editor yet");

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), QFileInfo(program).path() + QStringLiteral(":/usr/bin:/bin"));
    QProcess editor;
    editor.setProcessEnvironment(environment);
    editor.start(program, {});
    QVERIFY(editor.waitForStarted());
    QTest::qWait(3000);

    QFile file(scratch->filePath(QStringLiteral("message.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("one\ntwo\n");
    file.close();
    QProcess *waiting = runLwood({QStringLiteral("-w"), QStringLiteral("message.txt:2")}, environment);
    QVERIFY(!waiting->waitForFinished(3000));
    QCOMPARE(editor.state(), QProcess::Running);

    editor.terminate();
    QVERIFY(editor.waitForFinished(20000));
    QVERIFY(waiting->waitForFinished(20000));
}

QTEST_GUILESS_MAIN(TestLwood)
#include "tst_lwood.moc"
