#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <pwd.h>
#include <unistd.h>

// Real file servers on 127.0.0.1 at free ports, started and stopped by the
// tests: an FTP server (plain or with explicit TLS, optionally throttled)
// serving a scratch folder to "tester"/"secret", and an sshd serving SFTP to
// the current user with a generated key.
namespace RemoteServers {

inline quint16 freePort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

inline bool accepts(quint16 port)
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port);
    return socket.waitForConnected(200);
}

inline bool run(const QString &program, const QStringList &args)
{
    QProcess process;
    process.start(program, args);
    return process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

class Server
{
public:
    virtual ~Server() { stop(); }

    quint16 port = 0;
    QTemporaryDir scratch;
    // What the server wrote so far.
    QString log()
    {
        collected += QString::fromUtf8(process.readAll());
        return collected;
    }
    void stop()
    {
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            process.waitForFinished(5000);
        }
    }

protected:
    bool startListening(const QString &program, const QStringList &args)
    {
        port = freePort();
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, QStringList(args).replaceInStrings(QStringLiteral("PORT"), QString::number(port)));
        process.waitForStarted();
        for (int waited = 0; waited < 10000 && process.state() == QProcess::Running; waited += 100) {
            if (accepts(port))
                return true;
            QTest::qWait(100);
        }
        return false;
    }

    QProcess process;
    QString collected;
};

class FtpServer : public Server
{
public:
    // The folder the user "tester" logs in to.
    QString root() const { return scratch.filePath(QStringLiteral("root")); }
    QString certificate() const { return scratch.filePath(QStringLiteral("cert.pem")); }

    // bytesPerSecond 0: no limit on data transfers.
    bool start(bool tls, int bytesPerSecond = 0)
    {
        QDir().mkpath(root());
        if (tls && !run(QStringLiteral("openssl"),
                        {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1",
                         "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", certificate(), "-out", certificate()}))
            return false;
        return startListening(QStringLiteral("/usr/bin/python3"),
                              {"-c", script, "PORT", root(), tls ? certificate() : QString(),
                               QString::number(bytesPerSecond)});
    }

    int refusedLogins() { return int(log().count(QStringLiteral("failed login"))); }

private:
    static constexpr const char *script = R"(
import sys
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler, TLS_FTPHandler, TLS_DTPHandler, ThrottledDTPHandler
from pyftpdlib.servers import FTPServer
port, root, cert, rate = int(sys.argv[1]), sys.argv[2], sys.argv[3], int(sys.argv[4])
authorizer = DummyAuthorizer()
authorizer.add_user("tester", "secret", root, perm="elradfmwMT")
handler = TLS_FTPHandler if cert else FTPHandler
if cert:
    # Clients may start the data channel's TLS handshake before the
    # transfer command; keep reading so that the handshake goes on.
    class EagerTLSDTP(TLS_DTPHandler):
        def readable(self):
            return self._ssl_accepting or super().readable()
    handler.dtp_handler = EagerTLSDTP
    handler.certfile = cert
    handler.tls_control_required = True
    handler.tls_data_required = True
if rate:
    ThrottledDTPHandler.read_limit = rate
    ThrottledDTPHandler.write_limit = rate
    handler.dtp_handler = ThrottledDTPHandler
handler.authorizer = authorizer
handler.auth_failed_timeout = 0.05
FTPServer(("127.0.0.1", port), handler).serve_forever()
)";
};

class SshServer : public Server
{
public:
    QString clientKey() const { return scratch.filePath(QStringLiteral("client_key")); }
    static QString user() { return QString::fromLocal8Bit(getpwuid(getuid())->pw_name); }

    // Answers why the server cannot run here, or "" once it listens.
    QString start()
    {
        const QString sshd = QStringLiteral("/usr/sbin/sshd");
        if (!QFile::exists(sshd))
            return QStringLiteral("no sshd installed");
        // A root sshd checks for its privilege separation folder.
        if (getuid() == 0 && !QDir(QStringLiteral("/run/sshd")).exists())
            QDir().mkpath(QStringLiteral("/run/sshd"));
        const QString hostKey = scratch.filePath(QStringLiteral("host_key"));
        for (const QString &key : {hostKey, clientKey()}) {
            if (!run(QStringLiteral("ssh-keygen"), {"-q", "-t", "ed25519", "-N", "", "-f", key}))
                return QStringLiteral("ssh-keygen failed");
        }
        QFile::copy(clientKey() + QStringLiteral(".pub"), scratch.filePath(QStringLiteral("authorized_keys")));
        QFile config(scratch.filePath(QStringLiteral("sshd_config")));
        config.open(QIODevice::WriteOnly);
        config.write(QStringLiteral("ListenAddress 127.0.0.1\nHostKey %1\nPidFile %2\nAuthorizedKeysFile %3\n"
                                    "StrictModes no\nUsePAM no\nPasswordAuthentication no\n"
                                    "KbdInteractiveAuthentication no\nPermitRootLogin prohibit-password\n"
                                    "Subsystem sftp internal-sftp\n")
                         .arg(hostKey, scratch.filePath(QStringLiteral("sshd.pid")),
                              scratch.filePath(QStringLiteral("authorized_keys")))
                         .toUtf8());
        config.close();
        if (!startListening(sshd, {"-D", "-e", "-p", "PORT", "-f", config.fileName()}))
            return QStringLiteral("sshd did not start: ") + log();
        return QString();
    }
};

}
