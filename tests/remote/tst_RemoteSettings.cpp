#include "remote/LWRemote.h"
#include "remote/RemoteEntry.h"
#include "remote/RemoteSettings.h"
#include "remote/TransferQueue.h"
#include "support/RecordingShell.h"

#include <QtTest>

// Reading a folder's remote mapping, the addresses made from it, long
// listings, and what a transfer run is given.
class TestRemoteSettings : public QObject
{
    Q_OBJECT

private slots:
    void defaultPortsApplyOnlyWithoutAPort_data();
    void defaultPortsApplyOnlyWithoutAPort();
    void mappingWithCommentsAndAddresses();
    void relativePaths();
    void longListingsOfFtpAndSftp();
    void transferArgumentsNeverHoldThePassword();
};

void TestRemoteSettings::defaultPortsApplyOnlyWithoutAPort_data()
{
    QTest::addColumn<QString>("mapping");
    QTest::addColumn<QString>("port");
    QTest::newRow("sftp empty port") << R"({"type": "sftp", "port": ""})" << "22";
    QTest::newRow("https no port") << R"({"type": "https"})" << "2077";
    QTest::newRow("http") << R"({"type": "http"})" << "2077";
    QTest::newRow("ftp") << R"({"type": "ftp"})" << "21";
    QTest::newRow("ftps") << R"({"type": "ftps"})" << "22";
    QTest::newRow("ftpes") << R"({"type": "ftpes"})" << "22";
    QTest::newRow("unknown type") << R"({"type": "gopher"})" << "";
    QTest::newRow("no type") << R"({"port": ""})" << "";
    QTest::newRow("given port kept") << R"({"type": "ftp", "port": "2121"})" << "2121";
    QTest::newRow("not JSON") << "type: ftp" << "";
}

void TestRemoteSettings::defaultPortsApplyOnlyWithoutAPort()
{
    QFETCH(QString, mapping);
    QFETCH(QString, port);
    QCOMPARE(RemoteSettings::fromJson(mapping).port, port);
}

void TestRemoteSettings::mappingWithCommentsAndAddresses()
{
    const RemoteSettings settings = RemoteSettings::fromJson(
        "{\n\t// the web server\n\t\"type\": \"ftps\",\n\t\"host\": \"example.org\",\n\t\"username\": \"me\",\n"
        "\t\"password\": \"pw\",\n\t\"excluded\": [\"cache\"],\n\t\"path\": \"/www/\"\n}");
    QCOMPARE(settings.path, QStringLiteral("www"));
    QCOMPARE(settings.baseAddress(), QStringLiteral("ftps://example.org:22/www/"));
    QCOMPARE(settings.serverAddress(), QStringLiteral("ftps://example.org:22/"));
    // Explicit TLS on the FTP scheme; names are percent-encoded.
    QCOMPARE(settings.curlAddress(QStringLiteral("www/a b/c#.txt"), false),
             QStringLiteral("ftp://example.org:22/www/a%20b/c%23.txt"));
    QCOMPARE(settings.curlAddress(QStringLiteral("www/sub"), true), QStringLiteral("ftp://example.org:22/www/sub/"));
    QVERIFY(settings.isExcluded(QStringLiteral("cache")));
    QVERIFY(settings.isExcluded(QStringLiteral(".ftp-settings.json")));
    QVERIFY(!settings.isExcluded(QStringLiteral("index.html")));
    QVERIFY(settings.isTransferable());
    QVERIFY(!RemoteSettings::fromJson(R"({"type": "https", "host": "h"})").isTransferable());
}

void TestRemoteSettings::relativePaths()
{
    RecordingShell shell;
    TransferQueue queue(&shell);
    const auto remote = [&](const char *path) {
        return LWRemote::newWithConfig(QStringLiteral(R"({"type": "ftp", "host": "h", "path": "%1"})").arg(path),
                                       &shell, &shell, &queue);
    };
    QCOMPARE(remote("/www/")->relativePath(QUrl("ftp://h:21/www/sub/a.txt")), QStringLiteral("sub/a.txt"));
    QCOMPARE(remote("/")->relativePath(QUrl("ftp://h:21/sub/a.txt")), QStringLiteral("sub/a.txt"));
    QCOMPARE(remote("www")->relativePath(QUrl("ftp://h:21/other//a.txt")), QStringLiteral("/other/a.txt"));
}

void TestRemoteSettings::longListingsOfFtpAndSftp()
{
    const QString listing = QStringLiteral(
        "drwxr-xr-x   4 root     root         4096 Nov 23 13:28 .\r\n"
        "drwxr-xr-x   6 root     root         4096 Nov 23 13:28 ..\r\n"
        "drwxr-xr-x   2 tester   staff        4096 Nov 23 13:28 with  space\r\n"
        "-rw-r--r--   1 tester   staff           6 Jan  2  2024 a.txt\r\n"
        "lrwxrwxrwx   1 tester   staff           5 Nov 23 13:28 latest -> a.txt\r\n"
        "total 12\r\n");
    const QList<RemoteEntry> entries = RemoteEntry::fromLongListing(listing, QStringLiteral("www"));
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries.at(0).path, QStringLiteral("www/with  space"));
    QVERIFY(entries.at(0).folder);
    QCOMPARE(entries.at(1).path, QStringLiteral("www/a.txt"));
    QVERIFY(!entries.at(1).folder);
    QCOMPARE(entries.at(2).name(), QStringLiteral("latest"));
}

void TestRemoteSettings::transferArgumentsNeverHoldThePassword()
{
    const RemoteSettings settings = RemoteSettings::fromJson(
        R"({"type": "sftp", "host": "h", "username": "me", "password": "hunter2", "privateKey": "/k"})");
    const QStringList arguments = TransferQueue::arguments(
        {QStringLiteral("uf"), settings.transferScriptSettings(), QStringLiteral("www/a.txt"), QStringLiteral("/l/a.txt"),
         settings.password, {}});
    QCOMPARE(arguments.at(0), QStringLiteral("php"));
    QVERIFY(arguments.at(1).endsWith(QStringLiteral("/LWRemote.php")));
    QCOMPARE(arguments.mid(2, 1), QStringList{"uf"});
    QCOMPARE(arguments.mid(4), QStringList({"www/a.txt", "/l/a.txt"}));
    QVERIFY(arguments.at(3).contains(QStringLiteral("\"key\":\"/k\"")));
    QVERIFY(!arguments.join(' ').contains(QStringLiteral("hunter2")));
}

QTEST_GUILESS_MAIN(TestRemoteSettings)
#include "tst_RemoteSettings.moc"
