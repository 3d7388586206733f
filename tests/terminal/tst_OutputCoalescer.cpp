#include "terminal/OutputCoalescer.h"
#include "terminal/TailBuffer.h"

#include <QtTest>

// Output for the page: one batch in flight at a time, the rest gathered
// under a cap that drops the oldest text with a note, and the closing step
// only after the last batch.
class OutputCoalescerTest : public QObject
{
    Q_OBJECT

    // A consumer that takes batches in only when told to.
    struct SlowConsumer
    {
        QStringList batches;
        QList<std::function<void()>> confirmations;

        OutputCoalescer::Deliver deliver()
        {
            return [this](const QString &batch, const std::function<void()> &delivered) {
                batches.append(batch);
                confirmations.append(delivered);
            };
        }
        void confirmOldest() { confirmations.takeFirst()(); }
    };

private slots:
    void chunksGatherWhileABatchIsInFlight()
    {
        SlowConsumer page;
        const auto output = OutputCoalescer::create(100, page.deliver());
        output->append(QStringLiteral("a"));
        output->append(QStringLiteral("b"));
        output->append(QString());
        output->append(QStringLiteral("c"));
        QCOMPARE(page.batches, QStringList{QStringLiteral("a")});
        page.confirmOldest();
        QCOMPARE(page.batches, (QStringList{QStringLiteral("a"), QStringLiteral("bc")}));
        QCOMPARE(page.confirmations.size(), 1);

        bool closed = false;
        output->finish([&] { closed = true; });
        QVERIFY(!closed);
        page.confirmOldest();
        QVERIFY(closed);
        QCOMPARE(page.batches.size(), 2);
    }

    void excessIsDroppedOldestFirstWithANote()
    {
        SlowConsumer page;
        const auto output = OutputCoalescer::create(30, page.deliver());
        output->append(QStringLiteral("first\n"));
        for (int line = 0; line < 1000; ++line)
            output->append(QStringLiteral("line %1\n").arg(line, 4, 10, QLatin1Char('0')));
        page.confirmOldest();
        const QString batch = page.batches.last();
        QVERIFY2(batch.startsWith(QStringLiteral("\u2026 ")) && batch.contains(QStringLiteral("characters of output not shown")),
                 qPrintable(batch));
        // Whole lines only, ending with the newest.
        const QString kept = batch.section(QLatin1Char('\n'), 1);
        QCOMPARE(kept, QStringLiteral("line 0997\nline 0998\nline 0999\n"));
    }

    void aCutNeverSplitsACharacter()
    {
        TailBuffer buffer(5);
        buffer.append(QStringLiteral("ab") + QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80"));
        const QString kept = buffer.take().section(QLatin1Char('\n'), 1);
        QVERIFY(!kept.isEmpty() && !kept.at(0).isLowSurrogate());
        QVERIFY(kept.size() <= 5);
        QVERIFY(buffer.isEmpty());
    }

    void cancelledOutputDeliversNothingMore()
    {
        SlowConsumer page;
        const auto output = OutputCoalescer::create(100, page.deliver());
        output->append(QStringLiteral("shown"));
        output->append(QStringLiteral("dropped"));
        bool closed = false;
        output->finish([&] { closed = true; });
        output->cancel();
        page.confirmOldest();
        QCOMPARE(page.batches, QStringList{QStringLiteral("shown")});
        QVERIFY(!closed);
    }
};

QTEST_GUILESS_MAIN(OutputCoalescerTest)
#include "tst_OutputCoalescer.moc"
