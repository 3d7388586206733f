#include "remote/LWFTP.h"
#include "support/RecordingShell.h"
#include "support/RemoteServers.h"

#include <QtTest>

// The direct connection against a real FTP server: a listing in the
// terminal, a copy with progress, and five refused logins before the alert.
class TestLWFTP : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(server.start(false)); }
    void copiesAndListsIntoTheTerminal();
    void refusedLoginAlertsAfterFiveTries();

private:
    QString mapping(const QString &password) const
    {
        // No port: the type's default would apply, so the test names its own.
        return QStringLiteral(R"({"type": "ftp", "host": "127.0.0.1", "username": "tester", "password": "%1",
                                  "port": "%2", "path": "/site/"})")
            .arg(password)
            .arg(server.port);
    }

    RemoteServers::FtpServer server;
    QTemporaryDir scratch;
};

void TestLWFTP::copiesAndListsIntoTheTerminal()
{
    RecordingShell shell;
    const auto connection = LWFTP::connectionWithSettings(mapping("secret"), &shell, &shell, &shell);
    QCOMPARE(connection->baseURL().toString(), QStringLiteral("ftp://127.0.0.1:%1/site/").arg(server.port));

    QDir().mkpath(server.root() + "/site/empty");
    connection->getListingAtPath(QStringLiteral("empty"));
    QTRY_COMPARE(shell.editorScripts, QStringList({"$Terminal.show();",
                                                   "$Terminal.echo('FTP:: Getting contents at path: empty');",
                                                   "$Terminal.echo();"}));
    QVERIFY(shell.statusMessages.contains(QStringLiteral("FTP: Running...")));

    const QString local = scratch.filePath(QStringLiteral("page.html"));
    QFile file(local);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(200000, 'p'));
    file.close();
    QString outcome = QStringLiteral("pending");
    connection->syncItemsFrom(local, QStringLiteral("site/new/page.html"),
                              [&outcome](const QString &error) { outcome = error; });
    QTRY_COMPARE(outcome, QString());
    QCOMPARE(QFileInfo(server.root() + "/site/new/page.html").size(), 200000);

    shell.editorScripts.clear();
    connection->getListingAtPath(QString());
    QTRY_COMPARE(shell.editorScripts.size(), 5);
    QVERIFY(shell.editorScripts.contains(QStringLiteral("$Terminal.echo('site/empty');")));
    QVERIFY(shell.editorScripts.contains(QStringLiteral("$Terminal.echo('site/new');")));
    QCOMPARE(shell.editorScripts.last(), QStringLiteral("$Terminal.echo();"));
    QTRY_COMPARE(shell.statusMessages.last(), QString());
}

void TestLWFTP::refusedLoginAlertsAfterFiveTries()
{
    RecordingShell shell;
    const int before = server.refusedLogins();
    const auto connection = LWFTP::connectionWithSettings(mapping("wrong"), &shell, &shell, &shell);
    connection->getListingAtPath(QString());
    QTRY_COMPARE(shell.alerts.size(), 1);
    QCOMPARE(shell.alerts.first(), qMakePair(QStringLiteral("FTP connection failed"),
                                             QStringLiteral("Please make sure your credentials are correct")));
    QCOMPARE(server.refusedLogins() - before, 5);
}

QTEST_GUILESS_MAIN(TestLWFTP)
#include "tst_LWFTP.moc"
