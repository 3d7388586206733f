#include "app/LWPaths.h"
#include "editor/ui/LWBridgePage.h"
#include "editor/ui/LWUtilityWebViewController.h"
#include "editor/ui/LWWebViewController.h"
#include "support/RecordingShell.h"
#include "support/WebTestMain.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWidget>
#include <QtTest>

namespace {

// Stands in for the backend: records every call a page makes through "core".
class Probe : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void hit(const QString &from) { hits.append(from); }
    QStringList hits;
};

// Serves one HTML page to every request on 127.0.0.1 and keeps the requests.
class PageServer : public QTcpServer
{
public:
    explicit PageServer(const QByteArray &html) : page(html)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(socket); });
        });
    }
    QString url(const QString &path = QStringLiteral("/")) const
    {
        return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
    }
    QList<QByteArray> requests;

private:
    void answer(QTcpSocket *socket)
    {
        requests.append(socket->readAll());
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\nContent-Length: "
                      + QByteArray::number(page.size()) + "\r\n\r\n" + page);
        socket->disconnectFromHost();
    }
    QByteArray page;
};

// A page that tries to reach "core" and notes whether the transport exists.
QByteArray probingPage(const QString &from)
{
    return QStringLiteral("<html><body><script>"
                          "window.transport = (typeof qt !== 'undefined' && qt.webChannelTransport) ? 'yes' : 'no';"
                          "if (window.transport === 'yes') new QWebChannel(qt.webChannelTransport, "
                          "function (c) { window.core = c.objects.core; core.hit('%1'); });"
                          "</script></body></html>")
        .arg(from)
        .toUtf8();
}

void writeDataFile(const QString &relative, const QByteArray &bytes)
{
    const QString path = LWPaths::dataPath(relative);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
}

}

// The two page hosts on the real web engine: which pages reach the backend,
// script evaluation, cookies and the utility page's read-only editor.
class TestWebViewControllers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void mainPageLoadsFromTheDataRootWithTheBridge();
    void shellHTMLReachesCoreButRemotePagesDoNot();
    void pageNavigatingAwayLosesTheBridge();
    void remoteFrameInsideABridgedPageCannotReachCore();
    void remotePageBeingReplacedCannotCatchTheBridge();
    void cookiesBecomeTheRequestHeader();
    void utilityEditorReusesALoadedMode();

private:
    QString loadUtility(const std::function<void()> &load);

    std::unique_ptr<RecordingShell> shell;
    std::unique_ptr<QWidget> window;
    Probe probe;
    LWUtilityWebViewController *utility = nullptr;
};

void TestWebViewControllers::init()
{
    shell = std::make_unique<RecordingShell>();
    window = std::make_unique<QWidget>();
    utility = new LWUtilityWebViewController(&probe, window.get());
    probe.hits.clear();
}

void TestWebViewControllers::cleanup()
{
    window.reset();
    shell.reset();
}

// Runs load and waits for the page to finish; answers the page's transport note.
QString TestWebViewControllers::loadUtility(const std::function<void()> &load)
{
    QSignalSpy loaded(utility, &LWUtilityWebViewController::pageLoaded);
    load();
    if (!loaded.wait(20000))
        return QStringLiteral("timeout");
    return utility->evaluate(QStringLiteral("window.transport"));
}

void TestWebViewControllers::mainPageLoadsFromTheDataRootWithTheBridge()
{
    writeDataFile(QStringLiteral("Data/Html/index.html"), probingPage(QStringLiteral("main")));
    auto *main = new LWWebViewController(&probe, window.get());
    QSignalSpy loaded(main, &LWWebViewController::pageLoaded);
    QVERIFY(loaded.wait(20000));
    QTRY_COMPARE(probe.hits, QStringList{QStringLiteral("main")});
    QCOMPARE(main->evaluate(QStringLiteral("location.protocol")), QStringLiteral("file:"));
    QCOMPARE(main->evaluate(QStringLiteral("'it\\'s ' + 'é'")), QStringLiteral("it's é"));
    QCOMPARE(main->evaluate(QStringLiteral("42")), QString());
    QCOMPARE(main->evaluate(QStringLiteral("undefined")), QString());
    QCOMPARE(main->evaluate(QStringLiteral("throw new Error('x')")), QString());
}

void TestWebViewControllers::shellHTMLReachesCoreButRemotePagesDoNot()
{
    QCOMPARE(loadUtility([&] { utility->loadHTML(QString::fromUtf8(probingPage(QStringLiteral("string")))); }),
             QStringLiteral("yes"));
    QTRY_COMPARE(probe.hits, QStringList{QStringLiteral("string")});

    writeDataFile(QStringLiteral("Data/Html/plugin.html"), probingPage(QStringLiteral("data root")));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(LWPaths::dataPath(QStringLiteral("Data/Html/plugin.html"))); }),
             QStringLiteral("yes"));
    QTRY_COMPARE(probe.hits.size(), 2);

    PageServer server(probingPage(QStringLiteral("remote")));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(server.url()); }), QStringLiteral("no"));
    QCOMPARE(loadUtility([&] {
                 utility->loadHTML(QString::fromUtf8(probingPage(QStringLiteral("remote base"))), server.url());
             }),
             QStringLiteral("no"));
    QTemporaryDir elsewhere;
    QFile outside(elsewhere.filePath(QStringLiteral("page.html")));
    QVERIFY(outside.open(QIODevice::WriteOnly));
    outside.write(probingPage(QStringLiteral("outside")));
    outside.close();
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(outside.fileName()); }), QStringLiteral("no"));
    QCOMPARE(utility->evaluate(QStringLiteral("typeof core")), QStringLiteral("undefined"));
    QTest::qWait(300);
    QCOMPARE(probe.hits.size(), 2);
}

void TestWebViewControllers::pageNavigatingAwayLosesTheBridge()
{
    PageServer server(probingPage(QStringLiteral("remote")));
    QCOMPARE(loadUtility([&] { utility->loadHTML(QString::fromUtf8(probingPage(QStringLiteral("string")))); }),
             QStringLiteral("yes"));
    QCOMPARE(loadUtility([&] { utility->evaluate(QStringLiteral("location.href = '%1'; ''").arg(server.url())); }),
             QStringLiteral("no"));
    QCOMPARE(utility->evaluate(QStringLiteral("location.protocol")), QStringLiteral("http:"));
    QVERIFY(!utility->page()->isBridgeAttached());
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList{QStringLiteral("string")});
}

void TestWebViewControllers::remoteFrameInsideABridgedPageCannotReachCore()
{
    // The frame tells its parent whether it found the transport.
    PageServer server(probingPage(QStringLiteral("frame")).replace(
        "</script>", "parent.postMessage(window.transport, '*');</script>"));
    const QString html = QString::fromUtf8(probingPage(QStringLiteral("string")))
                             .replace(QStringLiteral("</body>"),
                                      QStringLiteral("<script>addEventListener('message', function (e) "
                                                     "{ window.frameSaid = e.data; });</script>"
                                                     "<iframe src='%1'></iframe></body>")
                                          .arg(server.url()));
    QCOMPARE(loadUtility([&] { utility->loadHTML(html); }), QStringLiteral("yes"));
    QTRY_COMPARE(utility->evaluate(QStringLiteral("window.frameSaid")), QStringLiteral("no"));
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList{QStringLiteral("string")});
}

void TestWebViewControllers::remotePageBeingReplacedCannotCatchTheBridge()
{
    // The remote page keeps looking for the transport while the program
    // replaces it with trusted content.
    PageServer server("<html><body><script>setInterval(function () {"
                      "if (typeof qt !== 'undefined' && qt.webChannelTransport && !window.caught) {"
                      "window.caught = true; new QWebChannel(qt.webChannelTransport, "
                      "function (c) { c.objects.core.hit('caught'); }); } }, 1);</script></body></html>");
    for (int round = 0; round < 5; ++round) {
        QCOMPARE(loadUtility([&] { utility->loadHTMLFile(server.url()); }), QString());
        loadUtility([&] { utility->loadHTML(QString::fromUtf8(probingPage(QStringLiteral("string")))); });
    }
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList(5, QStringLiteral("string")));
}

void TestWebViewControllers::cookiesBecomeTheRequestHeader()
{
    PageServer server("<html></html>");
    const QVariantList cookies = {
        QVariantMap{{"domain", "127.0.0.1"}, {"path", "/"}, {"name", "session"}, {"value", "abc"}},
        QVariantMap{{"name", "incomplete"}, {"value", "x"}},
        QVariantMap{{"domain", "127.0.0.1"}, {"path", "/"}, {"name", "theme"}, {"value", "dark"}},
    };
    loadUtility([&] { utility->loadHTMLFile(server.url(QStringLiteral("/page")), cookies); });
    QVERIFY(!server.requests.isEmpty());
    QVERIFY2(server.requests.first().contains("\r\nCookie: session=abc; theme=dark\r\n"), server.requests.first());
    QVERIFY(utility->editorMode().isEmpty());
}

void TestWebViewControllers::utilityEditorReusesALoadedMode()
{
    // A stand-in utility page that records the editor calls it receives.
    writeDataFile(QStringLiteral("Data/Html/uindex.html"),
                  "<html><body><script>window.calls = []; window.loads = (window.loads || 0) + 1;"
                  "var mode = '';"
                  "window.lw = { getMode: function () { return mode; },"
                  " setState: function (s) { mode = s.mode; calls.push('state ' + s.content + ' ' + s.mode + ' ' + s.readOnly); },"
                  " setTheme: function (t) { calls.push('theme ' + t); },"
                  " editor: { getSession: function () { return { setUseWorker: function (w) { calls.push('worker ' + w); } }; } } };"
                  "window.$ = function (s) { return { hide: function () { calls.push('hide ' + s); } }; };"
                  "</script></body></html>");
    shell->scriptAnswer = QStringLiteral("ace/theme/monokai");
    loadUtility([&] { utility->loadEditorHTML(QStringLiteral("a 'quoted'\r\nline"), QStringLiteral("python")); });
    QCOMPARE(utility->evaluate(QStringLiteral("calls.join('|')")),
             QStringLiteral("state a 'quoted'\r\nline python true|hide .panel-tabs|theme monokai|worker false"));
    QVERIFY(shell->utilityVisible);

    utility->loadEditorHTML(QStringLiteral("second"), QStringLiteral("python"));
    QCOMPARE(utility->evaluate(QStringLiteral("calls.slice(4).join('|')")), QStringLiteral("state second python true"));
    QCOMPARE(utility->editorContent(), QStringLiteral("second"));

    loadUtility([&] { utility->loadHTML(QStringLiteral("<p>plain</p>")); });
    QVERIFY(utility->editorMode().isEmpty());
}

LW_WEB_TEST_MAIN(TestWebViewControllers)
#include "tst_LWWebViewControllers.moc"
