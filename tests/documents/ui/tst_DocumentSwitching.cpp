#include "app/ui/LWAppDelegate.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "support/WebTestMain.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>

// Switching documents through the manager on the real editor page: what the
// editor shows, what the nodes hold afterwards and what saving writes.
class TestDocumentSwitching : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void switchingKeepsTextUndoAndCursor();
    void textSetByTheShellShowsOnSwitchBack();
    void textsRoundTripExactly_data();
    void textsRoundTripExactly();
    void unsavedEditsSurviveASwitchAndAreSaved();

private:
    QString page(const QString &script) { return delegate->evaluateInEditor(script); }
    void switchTo(const LWDocument::Ptr &document) { delegate->documentManager()->switchToDoc(document); }
    // The page's own full state of the shown document, content included.
    QString shownContent();
    // How many texts the page has fetched from the shell since the last call.
    int textsFetched();

    std::unique_ptr<LWAppDelegate> delegate;
    LWDocument::Ptr elsewhere;
};

void TestDocumentSwitching::initTestCase()
{
    delegate = std::make_unique<LWAppDelegate>(QStringList());
    delegate->window()->resize(1000, 700);
    delegate->window()->show();
    QSignalSpy ready(delegate.get(), &LWAppDelegate::editorReady);
    QVERIFY(ready.wait(60000));
    // The start-up's untitled document is shown once the outline lists it;
    // switches made before that would race with it.
    QTRY_VERIFY(delegate->window()->outline()->model()->rowCount() > 0);
    QTRY_VERIFY(delegate->documentManager()->currentDocument());
    elsewhere = LWDocument::fileWithLabel(QStringLiteral("elsewhere.txt"), QStringLiteral("elsewhere\n"));
    page(QStringLiteral("window.textsFetched = 0; var open = XMLHttpRequest.prototype.open;"
                        "XMLHttpRequest.prototype.open = function (method, url) {"
                        "  if (String(url).indexOf('lwtext:') === 0) window.textsFetched++;"
                        "  return open.apply(this, arguments); }; ''"));
}

int TestDocumentSwitching::textsFetched()
{
    return page(QStringLiteral("(function () { var count = window.textsFetched; window.textsFetched = 0;"
                               "  return String(count); })()")).toInt();
}

void TestDocumentSwitching::cleanupTestCase()
{
    delegate.reset();
}

QString TestDocumentSwitching::shownContent()
{
    return QJsonDocument::fromJson(page(QStringLiteral("lw.getState()")).toUtf8())
        .object().value(QStringLiteral("content")).toString();
}

void TestDocumentSwitching::switchingKeepsTextUndoAndCursor()
{
    const LWDocument::Ptr first = LWDocument::fileWithLabel(QStringLiteral("first.txt"), QStringLiteral("one\ntwo\n"));
    switchTo(first);
    const QString session = page(QStringLiteral("lw.editor.session.lwId"));
    page(QStringLiteral("lw.editor.gotoLine(2, 1); lw.insert('X'); lw.editor.gotoLine(2, 3); ''"));
    switchTo(elsewhere);
    QCOMPARE(page(QStringLiteral("lw.getValue()")), QStringLiteral("elsewhere\n"));
    QCOMPARE(first->content(), std::optional<QString>(QStringLiteral("one\ntXwo\n")));

    textsFetched();
    switchTo(first);
    QCOMPARE(textsFetched(), 0);
    QCOMPARE(page(QStringLiteral("lw.editor.session.lwId")), session);
    QCOMPARE(page(QStringLiteral("lw.getValue()")), QStringLiteral("one\ntXwo\n"));
    QCOMPARE(page(QStringLiteral("JSON.stringify(lw.editor.getCursorPosition())")),
             QStringLiteral("{\"row\":1,\"column\":3}"));
    page(QStringLiteral("lw.editor.undo(); ''"));
    QCOMPARE(page(QStringLiteral("lw.getValue()")), QStringLiteral("one\ntwo\n"));
    switchTo(elsewhere);
    QCOMPARE(first->content(), std::optional<QString>(QStringLiteral("one\ntwo\n")));
}

void TestDocumentSwitching::textSetByTheShellShowsOnSwitchBack()
{
    const LWDocument::Ptr document = LWDocument::fileWithLabel(QStringLiteral("set.txt"), QStringLiteral("before"));
    switchTo(document);
    switchTo(elsewhere);
    document->setContent(QStringLiteral("set by the shell"));
    switchTo(document);
    QCOMPARE(page(QStringLiteral("lw.getValue()")), QStringLiteral("set by the shell"));
    page(QStringLiteral("lw.editor.undo(); ''"));
    QCOMPARE(page(QStringLiteral("lw.getValue()")), QStringLiteral("before"));
    switchTo(elsewhere);
    QCOMPARE(document->content(), std::optional<QString>(QStringLiteral("before")));
}

void TestDocumentSwitching::textsRoundTripExactly_data()
{
    const QString sample = QStringLiteral("line \"one\" 'two' \\ back\\slash \\n \u00e9\u4e2d \U0001F600 "
                                          "\u2028 sep \u2029 para </script>\r\n");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("fetches");
    QTest::newRow("small, inside the script") << sample + sample << 0;
    QString large;
    while (large.size() < 3 * 1024 * 1024)
        large += sample;
    QTest::newRow("large, fetched by the page") << large << 1;
}

void TestDocumentSwitching::textsRoundTripExactly()
{
    QFETCH(QString, text);
    QFETCH(int, fetches);
    const LWDocument::Ptr document = LWDocument::fileWithLabel(QStringLiteral("exact.txt"), text);
    textsFetched();
    switchTo(document);
    QCOMPARE(textsFetched(), fetches);
    QCOMPARE(shownContent(), text);

    page(QStringLiteral("lw.editor.navigateFileEnd(); lw.insert('\u00e9\U0001F600'); ''"));
    switchTo(elsewhere);
    QCOMPARE(*document->content(), text + QStringLiteral("\u00e9\U0001F600"));
    switchTo(document);
    QCOMPARE(textsFetched(), 0);
    QCOMPARE(shownContent(), *document->content());
}

void TestDocumentSwitching::unsavedEditsSurviveASwitchAndAreSaved()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("notes.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("on disk\n");
    file.close();
    const LWDocument::Ptr document = LWDocument::fileFromPath(path);
    switchTo(document);
    page(QStringLiteral("lw.editor.navigateFileEnd(); lw.insert('typed'); ''"));
    switchTo(elsewhere);
    switchTo(document);
    QCOMPARE(page(QStringLiteral("lw.getValue()")), QStringLiteral("on disk\ntyped"));
    document->save();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("on disk\ntyped"));
}

LW_WEB_TEST_MAIN(TestDocumentSwitching)
#include "tst_DocumentSwitching.moc"
