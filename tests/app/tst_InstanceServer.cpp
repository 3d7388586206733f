#include "app/LWInstanceClient.h"
#include "app/LWInstanceServer.h"

#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <future>

// The running editor's socket: requests from later starts arrive whole,
// garbage is turned away, a socket file left by a crash is taken over, and a
// waiting start is let go once its document has been open and is closed.
class TestInstanceServer : public QObject
{
    Q_OBJECT

private slots:
    void staleSocketIsTakenOverAndRequestsArrive()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("socket"));
        QFile stale(name);
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.close();
        LWInstanceServer server;
        QVERIFY(server.listen(name));
        QSignalSpy requested(&server, &LWInstanceServer::requested);

        QLocalSocket garbage;
        garbage.connectToServer(name);
        QVERIFY(garbage.waitForConnected(1000));
        garbage.write("{\"paths\": [1, 2]}\n");
        QTRY_COMPARE(garbage.state(), QLocalSocket::UnconnectedState);
        QCOMPARE(requested.count(), 0);

        const LWOpenRequest sent{{QStringLiteral("/tmp/a, b.txt"), QStringLiteral("/tmp/ü")}, 12, false};
        std::future<bool> forwarded = std::async(std::launch::async, [&] { return LWInstanceClient::forward(name, sent); });
        QTRY_COMPARE(requested.count(), 1);
        const auto received = requested.first().first().value<LWOpenRequest>();
        QCOMPARE(received.paths, sent.paths);
        QCOMPARE(received.line, 12);
        QVERIFY(forwarded.get());
    }

    void waitingStartIsLetGoWhenItsDocumentCloses()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("socket"));
        LWInstanceServer server;
        QVERIFY(server.listen(name));
        QSignalSpy requested(&server, &LWInstanceServer::requested);
        std::future<bool> waiting = std::async(std::launch::async, [&] {
            return LWInstanceClient::forward(name, {{QStringLiteral("/tmp/w.txt")}, 0, true});
        });
        QTRY_COMPARE(requested.count(), 1);
        server.updateOpenDocuments({});
        server.updateOpenDocuments({QStringLiteral("/tmp/w.txt")});
        QTest::qWait(200);
        QCOMPARE(waiting.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
        server.updateOpenDocuments({QStringLiteral("/tmp/other.txt")});
        QTRY_COMPARE(waiting.wait_for(std::chrono::seconds(0)), std::future_status::ready);
        QVERIFY(waiting.get());
    }
};

QTEST_GUILESS_MAIN(TestInstanceServer)
#include "tst_InstanceServer.moc"
