#include "search/TextSearch.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

// Searching files on disk in the background: the query's options, the lines
// reported, and the files skipped.
class TestTextSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void optionsChooseTheLines_data();
    void optionsChooseTheLines();
    void binaryAndLargeFilesAreSkippedAndCounted();
    void badQueriesAreRefused();

private:
    QString write(const QString &name, const QByteArray &content) const;
    std::pair<QVector<TextHit>, TextSearchSummary> run(const QStringList &paths, const TextSearchQuery &query);

    QTemporaryDir scratch;
    QString text;
};

QString TestTextSearch::write(const QString &name, const QByteArray &content) const
{
    const QString path = scratch.filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
    return path;
}

std::pair<QVector<TextHit>, TextSearchSummary> TestTextSearch::run(const QStringList &paths,
                                                                   const TextSearchQuery &query)
{
    TextSearch search;
    QVector<TextHit> hits;
    TextSearchSummary summary;
    connect(&search, &TextSearch::hitsFound, this, [&hits](const QVector<TextHit> &found) { hits += found; });
    connect(&search, &TextSearch::finished, this, [&summary](const TextSearchSummary &done) { summary = done; });
    QSignalSpy finished(&search, &TextSearch::finished);
    if (search.start(paths, query))
        finished.wait(10000);
    return {hits, summary};
}

void TestTextSearch::initTestCase()
{
    text = write("text.txt", "Hello world\r\nsay hello, then\nHELLOWORLD\n\nhello");
}

void TestTextSearch::optionsChooseTheLines_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<bool>("regex");
    QTest::addColumn<bool>("wholeWord");
    QTest::addColumn<QList<int>>("lines");
    QTest::newRow("any case") << "hello" << false << false << false << QList<int>{1, 2, 3, 5};
    QTest::newRow("as written") << "hello" << true << false << false << QList<int>{2, 5};
    QTest::newRow("whole word") << "hello" << false << false << true << QList<int>{1, 2, 5};
    QTest::newRow("expression") << "w.rld$" << false << true << false << QList<int>{3};
    QTest::newRow("literal dot") << "w.rld" << false << false << false << QList<int>{};
}

void TestTextSearch::optionsChooseTheLines()
{
    QFETCH(QString, query);
    QFETCH(bool, caseSensitive);
    QFETCH(bool, regex);
    QFETCH(bool, wholeWord);
    QFETCH(QList<int>, lines);
    const auto [hits, summary] = run({text}, {query, caseSensitive, regex, wholeWord});
    QList<int> found;
    for (const TextHit &hit : hits)
        found.append(hit.line);
    QCOMPARE(found, lines);
    QCOMPARE(summary.hits, lines.size());
    if (!hits.isEmpty()) {
        QCOMPARE(hits.first().path, text);
        QVERIFY(!hits.first().lineText.endsWith('\r'));
    }
}

void TestTextSearch::binaryAndLargeFilesAreSkippedAndCounted()
{
    const QString binary = write("image.bin", QByteArray("hello\0\x01\x02", 8));
    const QString large = write("large.log", "hello\n");
    QFile grown(large);
    QVERIFY(grown.resize(TextSearch::SizeLimit + 1));
    const QString missing = scratch.filePath("gone.txt");
    const auto [hits, summary] = run({binary, large, missing, text}, {"hello", false, false, false});
    QCOMPARE(summary.filesSearched, 4);
    QCOMPARE(summary.skippedBinary, 1);
    QCOMPARE(summary.skippedLarge, 1);
    QCOMPARE(summary.unreadable, 1);
    QCOMPARE(summary.hits, 4);
    for (const TextHit &hit : hits)
        QCOMPARE(hit.path, text);
}

void TestTextSearch::badQueriesAreRefused()
{
    TextSearch search;
    QString error;
    QVERIFY(!search.start({text}, {"(unclosed", false, true, false}, &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!search.start({text}, {"", false, false, false}, &error));
    QVERIFY(!search.isRunning());
}

QTEST_GUILESS_MAIN(TestTextSearch)
#include "tst_TextSearch.moc"
