#include "app/LWPaths.h"
#include "editor/ui/LWBridgePage.h"
#include "editor/ui/LWUtilityWebViewController.h"
#include "editor/ui/LWWebViewController.h"
#include "support/RecordingShell.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebEngineSettings>
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

// Writes bytes to a file under the data root and answers its full path.
QString writeDataFile(const QString &relative, const QByteArray &bytes)
{
    const QString path = LWPaths::dataPath(relative);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return path;
}

// A page of the program's own: a probing page in the data root's Data tree.
QString trustedProbingPage(const QString &from)
{
    return writeDataFile(QStringLiteral("Data/Html/%1.html").arg(from), probingPage(from));
}

// Writes a probing page to a folder outside the program's files.
QString outsideProbingPage(const QTemporaryDir &folder, const QString &from)
{
    QFile page(folder.filePath(from + QStringLiteral(".html")));
    page.open(QIODevice::WriteOnly);
    page.write(probingPage(from));
    return page.fileName();
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
    void onlyTheProgramsOwnFilesReachCore();
    void sandboxTrustsOnlyTheDataTree();
    void pageNavigatingAwayLosesTheBridge();
    void untrustedPageCannotOpenATrustedOne();
    void remoteFrameInsideABridgedPageCannotReachCore();
    void remotePageBeingReplacedCannotCatchTheBridge();
    void cookiesBecomeTheRequestHeader();
    void utilityEditorReusesALoadedMode();
    void remotePageAnsweringTheModeQueryGetsNoText();

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

void TestWebViewControllers::onlyTheProgramsOwnFilesReachCore()
{
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(trustedProbingPage(QStringLiteral("plugin"))); }),
             QStringLiteral("yes"));
    QTRY_COMPARE(probe.hits, QStringList{QStringLiteral("plugin")});

    // A document's HTML: with no base, untitled (the base is the utility
    // page), or with a base inside the data tree.
    const QString documentHTML = QString::fromUtf8(probingPage(QStringLiteral("document")));
    QCOMPARE(loadUtility([&] { utility->loadHTML(documentHTML); }), QStringLiteral("no"));
    QCOMPARE(loadUtility([&] { utility->loadHTML(documentHTML, QString()); }), QStringLiteral("no"));
    QCOMPARE(loadUtility([&] { utility->loadHTML(documentHTML, LWPaths::dataPath(QStringLiteral("Data/"))); }),
             QStringLiteral("no"));

    PageServer server(probingPage(QStringLiteral("remote")));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(server.url()); }), QStringLiteral("no"));
    QCOMPARE(loadUtility([&] { utility->loadHTML(documentHTML, server.url()); }), QStringLiteral("no"));
    QTemporaryDir elsewhere;
    const QString outside = outsideProbingPage(elsewhere, QStringLiteral("outside"));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(outside); }), QStringLiteral("no"));
    // What pages write through getTempFile is theirs, not the program's.
    const QString temporary = writeDataFile(QStringLiteral("Data/Temp/1.html"), probingPage(QStringLiteral("temp")));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(temporary); }), QStringLiteral("no"));
    QCOMPARE(utility->evaluate(QStringLiteral("typeof core")), QStringLiteral("undefined"));
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList{QStringLiteral("plugin")});
}

void TestWebViewControllers::sandboxTrustsOnlyTheDataTree()
{
    qputenv("APP_SANDBOX_CONTAINER_ID", "test");
    const auto unsandbox = qScopeGuard([] { qunsetenv("APP_SANDBOX_CONTAINER_ID"); });
    QCOMPARE(LWPaths::dataRoot(), QDir::homePath());
    QDir().mkpath(QDir::homePath());
    QFile inHome(QDir::home().filePath(QStringLiteral("page.html")));
    QVERIFY(inHome.open(QIODevice::WriteOnly));
    inHome.write(probingPage(QStringLiteral("home")));
    inHome.close();
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(inHome.fileName()); }), QStringLiteral("no"));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(trustedProbingPage(QStringLiteral("sandboxed"))); }),
             QStringLiteral("yes"));
    QTRY_COMPARE(probe.hits, QStringList{QStringLiteral("sandboxed")});
}

void TestWebViewControllers::pageNavigatingAwayLosesTheBridge()
{
    QTemporaryDir elsewhere;
    const QUrl outside = QUrl::fromLocalFile(outsideProbingPage(elsewhere, QStringLiteral("outside")));
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(trustedProbingPage(QStringLiteral("plugin"))); }),
             QStringLiteral("yes"));
    QCOMPARE(loadUtility([&] { utility->evaluate(QStringLiteral("location.href = '%1'; ''").arg(outside.toString())); }),
             QStringLiteral("no"));
    QVERIFY(!utility->page()->isBridgeAttached());
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList{QStringLiteral("plugin")});
}

void TestWebViewControllers::untrustedPageCannotOpenATrustedOne()
{
    // A previewed file keeps looking for the transport while it sends itself
    // to one of the program's pages.
    const QUrl trusted = QUrl::fromLocalFile(trustedProbingPage(QStringLiteral("plugin")));
    QTemporaryDir elsewhere;
    QFile preview(elsewhere.filePath(QStringLiteral("preview.html")));
    QVERIFY(preview.open(QIODevice::WriteOnly));
    preview.write(QStringLiteral("<html><body><script>setInterval(function () {"
                                 "if (typeof qt !== 'undefined' && qt.webChannelTransport && !window.caught) {"
                                 "window.caught = true; new QWebChannel(qt.webChannelTransport, "
                                 "function (c) { c.objects.core.hit('caught'); }); } }, 1);"
                                 "setTimeout(function () { location.href = '%1'; }, 50);</script></body></html>")
                      .arg(trusted.toString())
                      .toUtf8());
    preview.close();
    loadUtility([&] { utility->loadHTMLFile(preview.fileName()); });
    QTest::qWait(1000);
    QVERIFY(probe.hits.isEmpty());
    QVERIFY(!utility->page()->isBridgeAttached());
    QCOMPARE(utility->evaluate(QStringLiteral("location.href")), QUrl::fromLocalFile(preview.fileName()).toString());
}

void TestWebViewControllers::remoteFrameInsideABridgedPageCannotReachCore()
{
    // The program's pages are local files, which the engine keeps from remote
    // content unless told otherwise; this case is about one that is allowed.
    utility->page()->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    // The frame tells its parent whether it found the transport.
    PageServer server(probingPage(QStringLiteral("frame")).replace(
        "</script>", "parent.postMessage(window.transport, '*');</script>"));
    const QByteArray html = probingPage(QStringLiteral("plugin"))
                                .replace("</body>", QStringLiteral("<script>addEventListener('message', function (e) "
                                                                   "{ window.frameSaid = e.data; });</script>"
                                                                   "<iframe src='%1'></iframe></body>")
                                                        .arg(server.url())
                                                        .toUtf8());
    const QString page = writeDataFile(QStringLiteral("Data/Html/framing.html"), html);
    QCOMPARE(loadUtility([&] { utility->loadHTMLFile(page); }), QStringLiteral("yes"));
    QTRY_COMPARE(utility->evaluate(QStringLiteral("window.frameSaid")), QStringLiteral("no"));
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList{QStringLiteral("plugin")});
}

void TestWebViewControllers::remotePageBeingReplacedCannotCatchTheBridge()
{
    // The remote page keeps looking for the transport while the program
    // replaces it with trusted content, which it does without waiting.
    PageServer server("<html><body><script>setInterval(function () {"
                      "if (typeof qt !== 'undefined' && qt.webChannelTransport && !window.caught) {"
                      "window.caught = true; new QWebChannel(qt.webChannelTransport, "
                      "function (c) { c.objects.core.hit('caught'); }); } }, 1);</script></body></html>");
    const QString trusted = trustedProbingPage(QStringLiteral("plugin"));
    for (int round = 0; round < 5; ++round) {
        QCOMPARE(loadUtility([&] { utility->loadHTMLFile(server.url()); }), QString());
        bool eventLoopRan = false;
        QTimer::singleShot(0, this, [&] { eventLoopRan = true; });
        QCOMPARE(loadUtility([&] {
                     utility->loadHTMLFile(trusted);
                     QVERIFY(!eventLoopRan);
                 }),
                 QStringLiteral("yes"));
    }
    QTest::qWait(300);
    QCOMPARE(probe.hits, QStringList(5, QStringLiteral("plugin")));
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

// A stand-in utility page that records the editor calls it receives.
void writeRecordingUtilityPage()
{
    writeDataFile(QStringLiteral("Data/Html/uindex.html"),
                  "<html><body><script>window.calls = []; window.loads = (window.loads || 0) + 1;"
                  "var mode = '';"
                  "window.lw = { getMode: function () { return mode; },"
                  " setState: function (s) { mode = s.mode; calls.push('state ' + s.content + ' ' + s.mode + ' ' + s.readOnly); },"
                  " setTheme: function (t) { calls.push('theme ' + t); },"
                  " editor: { getSession: function () { return { setUseWorker: function (w) { calls.push('worker ' + w); } }; } } };"
                  "window.$ = function (s) { return { hide: function () { calls.push('hide ' + s); } }; };"
                  "</script></body></html>");
}

void TestWebViewControllers::utilityEditorReusesALoadedMode()
{
    writeRecordingUtilityPage();
    shell->scriptAnswer = QStringLiteral("ace/theme/monokai");
    loadUtility([&] { utility->loadEditorHTML(QStringLiteral("a 'quoted'\r\nline"), QStringLiteral("python")); });
    QCOMPARE(utility->evaluate(QStringLiteral("calls.join('|')")),
             QStringLiteral("state a 'quoted'\r\nline python true|hide .panel-tabs|theme monokai|worker false"));
    QVERIFY(shell->utilityVisible);

    utility->loadEditorHTML(QStringLiteral("second"), QStringLiteral("python"));
    QTRY_COMPARE(utility->evaluate(QStringLiteral("calls.slice(4).join('|')")), QStringLiteral("state second python true"));
    QCOMPARE(utility->evaluate(QStringLiteral("String(window.loads)")), QStringLiteral("1"));
    QCOMPARE(utility->editorContent(), QStringLiteral("second"));

    loadUtility([&] { utility->loadHTML(QStringLiteral("<p>plain</p>")); });
    QVERIFY(utility->editorMode().isEmpty());
}

void TestWebViewControllers::remotePageAnsweringTheModeQueryGetsNoText()
{
    writeRecordingUtilityPage();
    // Claims to be the utility editor in the right mode and sends home any
    // state it is given.
    PageServer server("<html><body><script>window.lw = { getMode: function () { return 'python'; },"
                      " setState: function (s) { new Image().src = '/leak?' + encodeURIComponent(s.content); } };"
                      "</script></body></html>");
    loadUtility([&] { utility->loadHTMLFile(server.url()); });
    QCOMPARE(loadUtility([&] { utility->loadEditorHTML(QStringLiteral("secret"), QStringLiteral("python")); }),
             QString());
    QTRY_COMPARE(utility->evaluate(QStringLiteral("calls[0]")), QStringLiteral("state secret python true"));
    QTest::qWait(300);
    for (const QByteArray &request : server.requests)
        QVERIFY2(!request.contains("secret"), request.constData());
}

QTEST_MAIN(TestWebViewControllers)
#include "tst_LWWebViewControllers.moc"
