#include "app/ui/LWAppDelegate.h"
#include "documents/LWDocumentManager.h"
#include "documents/LWDocumentTree.h"
#include "documents/LWDocument.h"
#include "remote/RemoteFolderActions.h"
#include "support/RemoteServers.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenuBar>
#include <QRandomGenerator>

// Remote-mapped folders in the real window against real FTP, FTPS and SFTP
// servers: a tree goes up, is listed and comes back byte for byte into an
// empty folder; refused logins, excluded names, a server that goes away in
// the middle of a download and cancelling.
class TestRemoteFolders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { window.reset(); }
    void roundTrip_data();
    void roundTrip();
    void refusedLoginAlertsAfterThreeTries();
    void stoppedServerLeavesTheGoodFileInPlace();
    void cancelStopsTheTransfers();

private:
    QString root(const QString &name) const { return scratch.filePath(name); }
    // Writes a folder with its mapping and files (each holding its own name).
    void prepare(const QString &name, const QJsonObject &mapping, const QStringList &files = {});
    static QJsonObject ftpMapping(const RemoteServers::FtpServer &server, const QString &password = "secret");
    QJsonObject mappingFor(const QString &protocol) const;
    // The workspace folder the window opened from the command line.
    LWDocument::Ptr folder(const QString &name) const;
    // The terminal's lines, each between line feeds.
    QString terminal()
    {
        const QString lines = QStringLiteral("document.querySelector('#terminal .terminal-output').innerText");
        return QLatin1Char('\n') + window->page(lines).replace(QChar(0xa0), ' ') + QLatin1Char('\n');
    }
    // Every file below root (relative path -> bytes), the mapping left out.
    static QMap<QString, QByteArray> tree(const QString &root);
    static void write(const QString &path, const QByteArray &bytes);

    QTemporaryDir scratch;
    std::unique_ptr<WindowDriver> window;
    RemoteFolderActions *actions = nullptr;
    RemoteServers::FtpServer ftp;
    RemoteServers::FtpServer ftps;
    RemoteServers::FtpServer slowStopped;
    RemoteServers::FtpServer slowCancelled;
    RemoteServers::SshServer ssh;
    QString sshProblem;
};

void TestRemoteFolders::write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QMap<QString, QByteArray> TestRemoteFolders::tree(const QString &root)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (it.fileName() == QLatin1String(".ftp-settings.json"))
            continue;
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        files.insert(QDir(root).relativeFilePath(path), file.readAll());
    }
    return files;
}

void TestRemoteFolders::prepare(const QString &name, const QJsonObject &mapping, const QStringList &files)
{
    write(root(name) + QStringLiteral("/.ftp-settings.json"), QJsonDocument(mapping).toJson());
    for (const QString &file : files)
        write(root(name) + QLatin1Char('/') + file, file.toUtf8() + QByteArray(file.size() * 100, 'x'));
}

QJsonObject TestRemoteFolders::ftpMapping(const RemoteServers::FtpServer &server, const QString &password)
{
    return {{"type", "ftp"}, {"host", "127.0.0.1"}, {"username", "tester"}, {"password", password},
            {"port", QString::number(server.port)}, {"path", "/"}};
}

QJsonObject TestRemoteFolders::mappingFor(const QString &protocol) const
{
    QJsonObject mapping{{"type", protocol}, {"host", "127.0.0.1"}, {"excluded", QJsonArray{"private.key"}}};
    if (protocol == QLatin1String("sftp")) {
        mapping.insert("username", RemoteServers::SshServer::user());
        mapping.insert("password", "");
        mapping.insert("privateKey", ssh.clientKey());
        mapping.insert("port", QString::number(ssh.port));
        mapping.insert("path", ssh.scratch.filePath(QStringLiteral("served/www/")));
        return mapping;
    }
    const RemoteServers::FtpServer &server = protocol == QLatin1String("ftp") ? ftp : ftps;
    mapping.insert("username", "tester");
    mapping.insert("password", "secret");
    mapping.insert("port", QString::number(server.port));
    mapping.insert("path", "/www/");
    if (protocol == QLatin1String("ftps"))
        mapping.insert("certificate", server.certificate());
    return mapping;
}

LWDocument::Ptr TestRemoteFolders::folder(const QString &name) const
{
    for (const LWDocument::Ptr &group : window->delegate->documentManager()->documentTree().groups())
        if (group->fullPath() == root(name))
            return group;
    return nullptr;
}

void TestRemoteFolders::initTestCase()
{
    QVERIFY(ftp.start(false));
    QVERIFY(ftps.start(true));
    QVERIFY(slowStopped.start(false, 256 * 1024));
    QVERIFY(slowCancelled.start(false, 64 * 1024));
    sshProblem = ssh.start();

    QStringList names;
    for (const QString &protocol : {"ftp", "ftps", "sftp"}) {
        prepare("up-" + protocol, mappingFor(protocol),
                {"a.txt", "sub/c.txt", "sub/deeper/d.md", "with space/e.txt", "private.key"});
        QByteArray binary(300 * 1024, '\0');
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(binary.data()), binary.size() / 4);
        write(root("up-" + protocol) + "/b.bin", binary);
        prepare("down-" + protocol, mappingFor(protocol));
        names << "up-" + protocol << "down-" + protocol;
    }
    prepare("refused", ftpMapping(ftp, "wrong"));
    prepare("stopped", ftpMapping(slowStopped), {"big.dat"});
    write(slowStopped.root() + "/big.dat", QByteArray(4 * 1024 * 1024, 'n'));
    QStringList many;
    for (int index = 0; index < 8; ++index)
        many << QStringLiteral("file%1.txt").arg(index);
    prepare("cancelled", ftpMapping(slowCancelled), many);
    for (const QString &file : many)
        write(root("cancelled") + '/' + file, QByteArray(512 * 1024, 'c'));
    names << "refused" << "stopped" << "cancelled";

    QStringList paths;
    for (const QString &name : names)
        paths << root(name);
    window = std::make_unique<WindowDriver>(paths);
    QVERIFY(window->start());
    actions = window->delegate->remoteFolderActions();
    QVERIFY(actions);
    QTRY_VERIFY_WITH_TIMEOUT(folder("cancelled") && folder("cancelled")->noOfChildren() == 9, 20000);
}

void TestRemoteFolders::roundTrip_data()
{
    QTest::addColumn<QString>("protocol");
    QTest::newRow("ftp") << "ftp";
    QTest::newRow("ftps") << "ftps";
    QTest::newRow("sftp") << "sftp";
}

void TestRemoteFolders::roundTrip()
{
    QFETCH(QString, protocol);
    if (protocol == QLatin1String("sftp") && !sshProblem.isEmpty())
        QSKIP(qPrintable(QStringLiteral("SFTP needs a local sshd: ") + sshProblem));
    const QString serverRoot = protocol == QLatin1String("sftp") ? ssh.scratch.filePath(QStringLiteral("served/www"))
                                                                 : (protocol == QLatin1String("ftp") ? ftp : ftps).root() + "/www";
    const LWDocument::Ptr source = folder("up-" + protocol);
    QVERIFY(source);
    QMap<QString, QByteArray> expected = tree(source->fullPath());
    QCOMPARE(expected.size(), 6);
    expected.remove(QStringLiteral("private.key"));

    actions->upload(source);
    QTRY_COMPARE_WITH_TIMEOUT(tree(serverRoot), expected, 15000);
    QTRY_VERIFY_WITH_TIMEOUT(terminal().contains(QStringLiteral("\u2714 %1/sub/deeper/d.md").arg(source->fullPath())),
                             5000);
    QVERIFY(!terminal().contains(QStringLiteral("secret")));

    actions->listRemote(source);
    QTRY_VERIFY2_WITH_TIMEOUT(terminal().contains(QStringLiteral("\nsub/deeper/d.md\n")), qPrintable(terminal()), 10000);
    QVERIFY(terminal().contains(QStringLiteral("\nwith space/e.txt\n")));

    // The server also has a file the mapping excludes: it stays there.
    write(serverRoot + QStringLiteral("/private.key"), "server copy");
    const LWDocument::Ptr target = folder("down-" + protocol);
    actions->download(target);
    QTRY_COMPARE_WITH_TIMEOUT(tree(target->fullPath()), expected, 15000);
    QTRY_VERIFY_WITH_TIMEOUT(terminal().contains(QStringLiteral("\u2714 %1/with space/e.txt").arg(target->fullPath())),
                             5000);
    QVERIFY(!terminal().contains(QStringLiteral("\u2718")));
}

void TestRemoteFolders::refusedLoginAlertsAfterThreeTries()
{
    const int before = ftp.refusedLogins();
    actions->download(folder("refused"));
    QMessageBox *alert = window->question();
    QVERIFY(alert);
    QCOMPARE(alert->text(), QStringLiteral("Remote connection failed"));
    QCOMPARE(alert->informativeText(), QStringLiteral("Please make sure your credentials are correct"));
    QVERIFY(window->answer(QStringLiteral("OK")));
    QCOMPARE(ftp.refusedLogins() - before, 3);
    // The mapping holds a password: once read, only its owner may read it.
    const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther;
    QCOMPARE(QFile::permissions(root("refused") + "/.ftp-settings.json") & others, QFile::Permissions());
}

void TestRemoteFolders::stoppedServerLeavesTheGoodFileInPlace()
{
    const LWDocument::Ptr stopped = folder("stopped");
    const QString local = stopped->fullPath() + QStringLiteral("/big.dat");
    const QMap<QString, QByteArray> before = tree(stopped->fullPath());
    const auto partials = [&] {
        return QDir(stopped->fullPath()).entryList({QStringLiteral(".big.dat.part-*")}, QDir::Files | QDir::Hidden);
    };

    actions->download(stopped);
    QTRY_VERIFY_WITH_TIMEOUT(!partials().isEmpty(), 10000);
    QTest::qWait(500);
    slowStopped.stop();
    QTRY_VERIFY_WITH_TIMEOUT(terminal().contains(QStringLiteral("\u2718 %1 : ").arg(local)), 40000);
    QCOMPARE(tree(stopped->fullPath()), before);
}

void TestRemoteFolders::cancelStopsTheTransfers()
{
    const LWDocument::Ptr cancelled = folder("cancelled");
    const QMap<QString, QByteArray> local = tree(cancelled->fullPath());
    auto *cancel = window->delegate->window()->menuBar()->findChild<QAction *>(QStringLiteral("cancelTransfersAction"));
    QVERIFY(cancel);
    QCOMPARE(cancel->shortcut(), QKeySequence(QStringLiteral("Ctrl+Alt+.")));

    actions->upload(cancelled);
    QTRY_VERIFY_WITH_TIMEOUT(QDir(slowCancelled.root()).entryList(QDir::Files).size() == 4, 10000);
    cancel->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(terminal().contains(QStringLiteral("FTP:: Transfers cancelled, 8 not done")), 5000);
    // Four ran at once and four were waiting: none of them arrives complete.
    QTest::qWait(1000);
    const QFileInfoList uploaded = QDir(slowCancelled.root()).entryInfoList(QDir::Files);
    QCOMPARE(uploaded.size(), 4);
    for (const QFileInfo &info : uploaded)
        QVERIFY(info.size() < 512 * 1024);

    // A cancelled download leaves the local files as they were.
    actions->download(cancelled);
    QTRY_VERIFY_WITH_TIMEOUT(
        !QDir(cancelled->fullPath()).entryList({QStringLiteral(".*.part-*")}, QDir::Files | QDir::Hidden).isEmpty(),
        10000);
    cancel->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(terminal().count(QStringLiteral("FTP:: Transfers cancelled")) == 2, 5000);
    QTRY_COMPARE_WITH_TIMEOUT(tree(cancelled->fullPath()), local, 5000);
}

LW_WEB_TEST_MAIN(TestRemoteFolders)
#include "tst_RemoteFolders.moc"
