#include "search/FuzzyRanking.h"

#include <QtTest>

// Ranking of file paths and command titles as quick open and the command
// palette show them.
class TestFuzzyRanking : public QObject
{
    Q_OBJECT

private slots:
    void betterPlacedLettersRankFirst_data();
    void betterPlacedLettersRankFirst();
    void matchedLettersAreTheBestPlacement();
    void onlyOrderedSubsequencesMatch();
    void typingOnNarrowsAndBackingUpWidens();

private:
    static FuzzyRanking ranking(const QStringList &texts);
    static QStringList ranked(FuzzyRanking &ranking, const QString &query);
};

FuzzyRanking TestFuzzyRanking::ranking(const QStringList &texts)
{
    auto candidates = std::make_shared<std::vector<FuzzyMatcher::Candidate>>();
    for (const QString &text : texts)
        candidates->push_back(FuzzyMatcher::Candidate::of(text, text.lastIndexOf(QLatin1Char('/')) + 1));
    return FuzzyRanking(candidates);
}

QStringList TestFuzzyRanking::ranked(FuzzyRanking &ranking, const QString &query)
{
    QStringList texts;
    for (const FuzzyRanking::Result &result : ranking.rank(query, 50))
        texts.append((*ranking.candidates())[result.candidate].text);
    return texts;
}

void TestFuzzyRanking::betterPlacedLettersRankFirst_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("word starts") << QStringList{"src/aqxoy.cpp", "src/QuickOpen.cpp"} << "qo"
                                 << QStringList{"src/QuickOpen.cpp", "src/aqxoy.cpp"};
    QTest::newRow("start of the name") << QStringList{"src/domain.cpp", "src/main.cpp"} << "main"
                                       << QStringList{"src/main.cpp", "src/domain.cpp"};
    QTest::newRow("runs") << QStringList{"a/vxixexw.txt", "a/review.txt"} << "view"
                          << QStringList{"a/review.txt", "a/vxixexw.txt"};
    QTest::newRow("name before folders") << QStringList{"test/a.cpp", "a/test.cpp"} << "test"
                                         << QStringList{"a/test.cpp", "test/a.cpp"};
    QTest::newRow("shorter path breaks ties") << QStringList{"project/lib/util.c", "lib/util.c", "b/util.c"}
                                              << "util" << QStringList{"b/util.c", "lib/util.c", "project/lib/util.c"};
    QTest::newRow("any case") << QStringList{"x/README.md"} << "readme" << QStringList{"x/README.md"};
}

void TestFuzzyRanking::betterPlacedLettersRankFirst()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, query);
    QFETCH(QStringList, expected);
    FuzzyRanking files = ranking(texts);
    QCOMPARE(ranked(files, query), expected);
}

// "ob" in "foo/Bar/oBar.txt" is better placed on the name's word starts than
// on the first letters that fit.
void TestFuzzyRanking::matchedLettersAreTheBestPlacement()
{
    FuzzyRanking files = ranking({"foo/bar/FooBar.cpp", "View > Word Wrap"});
    const std::vector<FuzzyRanking::Result> fb = files.rank("fb", 5);
    QCOMPARE(fb.size(), size_t(1));
    QCOMPARE(fb[0].match.positions, (QVector<int>{8, 11}));
    const std::vector<FuzzyRanking::Result> ww = files.rank("ww", 5);
    QCOMPARE(ww.size(), size_t(1));
    QCOMPARE(ww[0].match.positions, (QVector<int>{7, 12}));
}

void TestFuzzyRanking::onlyOrderedSubsequencesMatch()
{
    FuzzyRanking files = ranking({"a/abc.txt", "a/cba.txt"});
    QCOMPARE(ranked(files, "abc"), QStringList{"a/abc.txt"});
    QCOMPARE(ranked(files, "xyz"), QStringList{});
    QCOMPARE(ranked(files, "").size(), 2);
    QCOMPARE(files.rank("a", 1).size(), size_t(1));
}

void TestFuzzyRanking::typingOnNarrowsAndBackingUpWidens()
{
    FuzzyRanking files = ranking({"src/main.cpp", "src/mainwindow.cpp", "docs/manual.md"});
    QCOMPARE(ranked(files, "ma").size(), 3);
    QCOMPARE(ranked(files, "maw"), QStringList{"src/mainwindow.cpp"});
    QCOMPARE(ranked(files, "man"), (QStringList{"docs/manual.md", "src/main.cpp", "src/mainwindow.cpp"}));
}

QTEST_APPLESS_MAIN(TestFuzzyRanking)
#include "tst_FuzzyRanking.moc"
