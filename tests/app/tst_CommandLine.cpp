#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QtTest>

// The real program answers --help and --version and ends, with no display
// to open a window on.
class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void helpAndVersionNeedNoDisplay_data();
    void helpAndVersionNeedNoDisplay();
};

void TestCommandLine::helpAndVersionNeedNoDisplay_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("expected");
    QTest::newRow("help") << QStringLiteral("--help") << QStringLiteral("^Usage: larkwood .*--version.*paths");
    QTest::newRow("version") << QStringLiteral("--version")
                             << QStringLiteral("^Larkwood \\d+\\.\\d+\\.\\d+ \\(build \\d+\\)\\n$");
    QTest::newRow("version after a path") << QStringLiteral("--version") << QStringLiteral("^Larkwood \\d");
}

void TestCommandLine::helpAndVersionNeedNoDisplay()
{
    QFETCH(QString, argument);
    QFETCH(QString, expected);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(display));
    QProcess program;
    program.setProcessEnvironment(environment);
    const QStringList arguments = QString::fromLatin1(QTest::currentDataTag()).contains(QLatin1String("path"))
                                      ? QStringList{QStringLiteral("/tmp/some-file.txt"), argument}
                                      : QStringList{argument};
    program.start(QStringLiteral(LARKWOOD_PROGRAM), arguments);
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    const QString output = QString::fromLocal8Bit(program.readAllStandardOutput());
    QVERIFY2(QRegularExpression(expected, QRegularExpression::DotMatchesEverythingOption).match(output).hasMatch(),
             qPrintable(output));
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_CommandLine.moc"
