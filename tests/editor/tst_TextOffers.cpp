#include "editor/EditorTextTransfer.h"
#include "editor/TextOffers.h"

#include <QJsonObject>
#include <QtTest>

class TextOffersTest : public QObject
{
    Q_OBJECT

private slots:
    void largeOrKnownTextsGoAsOffersOnlyWhenServed()
    {
        const QString large(EditorTextTransfer::LiteralLimit + 1, QLatin1Char('x'));
        const QString small = QStringLiteral("small \u00e9");
        QCOMPARE(EditorTextTransfer::content(large, false), QJsonValue(large));
        QCOMPARE(EditorTextTransfer::content(small, true), QJsonValue(small));

        TextOffers::setServed(true);
        QCOMPARE(EditorTextTransfer::content(small, false), QJsonValue(small));
        QVERIFY(EditorTextTransfer::content(small, true).toObject().contains(QStringLiteral("url")));
        const QString url = EditorTextTransfer::content(large, false).toObject().value(QStringLiteral("url")).toString();
        QVERIFY2(url.startsWith(QStringLiteral("lwtext://offer/")), qPrintable(url));
        const QString ticket = url.section(QLatin1Char('/'), -1);
        QCOMPARE(ticket.size(), 32);
        QCOMPARE(TextOffers::take(ticket), std::optional<QString>(large));
        QVERIFY(!TextOffers::take(ticket));
        QVERIFY(!TextOffers::take(QString()));
        TextOffers::setServed(false);
    }

    void onlyTheNewestOffersAreKept()
    {
        QStringList tickets;
        for (int i = 0; i < 9; ++i)
            tickets << TextOffers::offer(QString::number(i)).section(QLatin1Char('/'), -1);
        QCOMPARE(tickets.size(), QSet<QString>(tickets.begin(), tickets.end()).size());
        QVERIFY(!TextOffers::take(tickets.first()));
        QCOMPARE(TextOffers::take(tickets.last()), std::optional<QString>(QStringLiteral("8")));
        QCOMPARE(TextOffers::take(tickets.at(1)), std::optional<QString>(QStringLiteral("1")));
    }
};

QTEST_GUILESS_MAIN(TextOffersTest)
#include "tst_TextOffers.moc"
