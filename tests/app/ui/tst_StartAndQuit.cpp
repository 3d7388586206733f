#include "app/LWSettingsFile.h"
#include "app/LWDefaults.h"
#include "app/LWInstanceChannel.h"
#include "app/LWInstanceServer.h"
#include "app/ui/DocumentTabs.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "support/WebTestMain.h"
#include "support/WindowDriver.h"

#include <QAction>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

// The application's life as a user sees it: the first start, quitting with
// and without unsaved work, a later start of the program handing its file
// to the running window, and the next start finding the workspace, tabs and
// window as they were left.
class TestStartAndQuit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window.reset(); }
    void firstStartShowsOneUntitledDocument();
    void quittingAsksOnlyAboutUnsavedWork();
    void closeButtonFollowsTheQuitSetting();
    void laterStartOpensItsFileHere();
    void nextStartRestoresTheWorkspaceAsLeft();

private:
    QString write(const QString &relative, const QString &text);
    QStringList tabTitles() const { return tabTitlesOf(*window->delegate); }
    static QStringList tabTitlesOf(LWAppDelegate &delegate);
    // Runs the application's event loop around the action: true when the
    // application quits (within a few seconds) without any question.
    bool quitsAfter(const std::function<void()> &action);
    void triggerQuit() { window->delegate->window()->findChild<QAction *>(QStringLiteral("quitAction"))->trigger(); }
    QStringList storedList(const QString &key) const;

    QTemporaryDir files;
    std::unique_ptr<WindowDriver> window;
};

void TestStartAndQuit::init()
{
    QSettings(LWSettingsFile::path(), QSettings::IniFormat).clear();
    window = std::make_unique<WindowDriver>();
    QVERIFY(window->start());
}

QString TestStartAndQuit::write(const QString &relative, const QString &text)
{
    const QString path = files.filePath(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
    return path;
}

QStringList TestStartAndQuit::tabTitlesOf(LWAppDelegate &delegate)
{
    DocumentTabs *tabs = delegate.window()->tabs();
    QStringList titles;
    for (int index = 0; index < tabs->count(); ++index)
        titles << tabs->tabText(index);
    return titles;
}

bool TestStartAndQuit::quitsAfter(const std::function<void()> &action)
{
    QTimer tooLong;
    tooLong.setSingleShot(true);
    connect(&tooLong, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    tooLong.start(10000);
    QTimer::singleShot(0, action);
    return QApplication::exec() == 0;
}

QStringList TestStartAndQuit::storedList(const QString &key) const
{
    QSettings store(LWSettingsFile::path(), QSettings::IniFormat);
    if (!store.contains(key + QStringLiteral("/size")))
        return {QStringLiteral("<not a list>")};
    QStringList list;
    const int size = store.beginReadArray(key);
    for (int index = 0; index < size; ++index) {
        store.setArrayIndex(index);
        list << store.value(QStringLiteral("item")).toString();
    }
    store.endArray();
    return list;
}

void TestStartAndQuit::firstStartShowsOneUntitledDocument()
{
    LWDocumentManager *documents = window->delegate->documentManager();
    QCOMPARE(documents->documentTree().filesGroup()->children().size(), size_t(1));
    QVERIFY(documents->currentDocument()->isUntitled());
    QCOMPARE(tabTitles().size(), 1);
    QTRY_COMPARE(window->page(QStringLiteral("String(lw.editor.isFocused())")), QStringLiteral("true"));
}

void TestStartAndQuit::quittingAsksOnlyAboutUnsavedWork()
{
    QVERIFY(window->typeKeys(QStringLiteral("draft")));
    QTRY_VERIFY(!window->delegate->documentManager()->currentDocument()->saved());
    triggerQuit();
    QCOMPARE(window->question()->text(), QStringLiteral("Are you sure?"));
    QVERIFY(window->answer(QStringLiteral("No")));
    QTest::qWait(300);
    QVERIFY(window->delegate->window()->isVisible());

    QVERIFY(quitsAfter([this] {
        triggerQuit();
        QTimer::singleShot(300, [this] { window->answer(QStringLiteral("Yes")); });
    }));
    // Only an untitled document was open: an empty list, kept as a list.
    QCOMPARE(storedList(QStringLiteral("LW_PreviouslyOpened")), QStringList());

    window = std::make_unique<WindowDriver>();
    QVERIFY(window->start());
    QVERIFY(quitsAfter([this] { triggerQuit(); }));
}

void TestStartAndQuit::closeButtonFollowsTheQuitSetting()
{
    QVERIFY(window->typeKeys(QStringLiteral("draft")));
    QTRY_VERIFY(!window->delegate->documentManager()->currentDocument()->saved());
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DoOnQuit"), 2);
    QVERIFY(!window->delegate->window()->close());
    QTest::qWait(300);
    QVERIFY(window->delegate->window()->findChildren<QMessageBox *>().isEmpty());
    QVERIFY(window->delegate->window()->isVisible());
    // The Quit command still quits, without asking.
    QVERIFY(quitsAfter([this] { triggerQuit(); }));

    window = std::make_unique<WindowDriver>();
    QVERIFY(window->start());
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DoOnQuit"), 1);
    QVERIFY(quitsAfter([this] { window->delegate->window()->close(); }));
}

void TestStartAndQuit::laterStartOpensItsFileHere()
{
    auto server = std::make_unique<LWInstanceServer>();
    QVERIFY(server->listen(LWInstanceChannel::socketName()));
    LWAppDelegate *delegate = window->delegate.get();
    connect(server.get(), &LWInstanceServer::requested, delegate, &LWAppDelegate::openRequest);
    connect(delegate, &LWAppDelegate::openDocumentsChanged, server.get(), &LWInstanceServer::updateOpenDocuments);

    QStringList lines;
    for (int line = 1; line <= 40; ++line)
        lines << QStringLiteral("line %1").arg(line);
    const QString path = write(QStringLiteral("later.txt"), lines.join(QLatin1Char('\n')));
    QProcess later;
    later.start(QStringLiteral(LARKWOOD_PROGRAM), {QStringLiteral("--line"), QStringLiteral("30"), path});
    QVERIFY(later.waitForFinished(10000));
    QCOMPARE(later.exitCode(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(delegate->documentManager()->currentDocument()->fullPath(), path, 10000);
    QTRY_COMPARE(window->page(QStringLiteral("String(lw.editor.getCursorPosition().row)")), QStringLiteral("29"));
    QTRY_VERIFY(tabTitles().contains(QStringLiteral("later.txt")));

    // A waiting start returns when the editor lets go of it (here: it quits).
    const QString waited = write(QStringLiteral("waited.txt"), QStringLiteral("w"));
    QProcess waiting;
    waiting.start(QStringLiteral(LARKWOOD_PROGRAM), {QStringLiteral("--wait"), waited});
    QTRY_VERIFY_WITH_TIMEOUT(delegate->openDocumentPaths().contains(waited), 10000);
    QVERIFY(!waiting.waitForFinished(500));
    server.reset();
    QVERIFY(waiting.waitForFinished(5000));
    QCOMPARE(waiting.exitCode(), 0);
}

void TestStartAndQuit::nextStartRestoresTheWorkspaceAsLeft()
{
    const QString first = write(QStringLiteral("first.txt"), QStringLiteral("1"));
    const QString second = write(QStringLiteral("second.txt"), QStringLiteral("2"));
    const QString folder = files.filePath(QStringLiteral("project"));
    const QString inFolder = write(QStringLiteral("project/inside.txt"), QStringLiteral("3"));
    window = std::make_unique<WindowDriver>(QStringList{first, second});
    QVERIFY(window->start());
    LWAppDelegate *delegate = window->delegate.get();
    delegate->openFiles({folder});
    WorkspaceOutline *outline = delegate->window()->outline();
    QList<QTreeWidgetItem *> found;
    QTRY_VERIFY_WITH_TIMEOUT(!(found = outline->findItems(QStringLiteral("inside.txt"),
                                                           Qt::MatchExactly | Qt::MatchRecursive)).isEmpty(),
                             10000);
    QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, outline->visualItemRect(found.first()).center());
    QTRY_COMPARE(tabTitles(), QStringList({QStringLiteral("first.txt"), QStringLiteral("second.txt"),
                                           QStringLiteral("inside.txt")}));
    DocumentTabs *tabs = delegate->window()->tabs();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    QTRY_COMPARE(delegate->documentManager()->currentDocument()->fullPath(), second);
    delegate->window()->resize(900, 640);
    delegate->window()->setSidebarSplitSizes({300, 600});
    QVERIFY(quitsAfter([this] { triggerQuit(); }));
    QCOMPARE(storedList(QStringLiteral("LW_PreviouslyOpened")), QStringList({first, second, folder}));

    // The next start, told to reopen, finds it all again but the deleted file.
    QFile::remove(first);
    LWDefaults::shared()->setInteger(QStringLiteral("LW_DoAtStartup"), 0);
    window.reset();
    LWAppDelegate restored({});
    restored.window()->show();
    QSignalSpy ready(&restored, &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    QTRY_COMPARE_WITH_TIMEOUT(tabTitlesOf(restored),
                              QStringList({QStringLiteral("second.txt"), QStringLiteral("inside.txt")}), 10000);
    QTRY_COMPARE(restored.window()->tabs()->selectedDocument()->fullPath(), second);
    QTRY_COMPARE(restored.documentManager()->currentDocument()->fullPath(), second);
    QVERIFY(!restored.documentManager()->documentTree().documentWithFullPath(first));
    QCOMPARE(restored.window()->size(), QSize(900, 640));
    QCOMPARE(restored.window()->sidebarSplitSizes().first(), 300);
    const QString picture = qEnvironmentVariable("LARKWOOD_RESTORED_PICTURE");
    if (!picture.isEmpty()) {
        QTest::qWait(1500);
        restored.window()->grab().save(picture);
    }
}

LW_WEB_TEST_MAIN(TestStartAndQuit)
#include "tst_StartAndQuit.moc"
