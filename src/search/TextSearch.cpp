#include "search/TextSearch.h"

#include "search/PoolTask.h"

#include <QElapsedTimer>
#include <QFile>

struct TextSearch::Run
{
    std::atomic<bool> cancelled{false};
};

namespace {

constexpr qint64 BinaryProbeLength = 8192;
constexpr qint64 BatchMilliseconds = 50;

enum class Reading { Read, Large, Binary, Unreadable };

Reading readText(const QString &path, QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Reading::Unreadable;
    if (file.size() > TextSearch::SizeLimit)
        return Reading::Large;
    const QByteArray bytes = file.readAll();
    if (bytes.left(BinaryProbeLength).contains('\0'))
        return Reading::Binary;
    text = QString::fromUtf8(bytes);
    return Reading::Read;
}

void count(Reading outcome, TextSearchSummary &summary)
{
    if (outcome == Reading::Large)
        ++summary.skippedLarge;
    else if (outcome == Reading::Binary)
        ++summary.skippedBinary;
    else if (outcome == Reading::Unreadable)
        ++summary.unreadable;
}

}

TextSearch::TextSearch(QObject *parent) : QObject(parent) {}

TextSearch::~TextSearch()
{
    cancel();
}

bool TextSearch::start(const QStringList &paths, const TextSearchQuery &query, QString *error)
{
    const QRegularExpression expression = query.expression();
    if (query.text.isEmpty() || !expression.isValid()) {
        if (error)
            *error = query.text.isEmpty() ? tr("Nothing to find") : expression.errorString();
        return false;
    }
    cancel();
    auto run = std::make_shared<Run>();
    current = run;
    running = true;
    PoolTask::start([this, guard = QPointer<QObject>(this), run, paths, expression] {
        TextSearchSummary summary;
        QVector<TextHit> batch;
        QElapsedTimer sinceBatch;
        sinceBatch.start();
        for (const QString &path : paths) {
            if (run->cancelled || summary.truncated)
                break;
            QString text;
            const Reading outcome = readText(path, text);
            count(outcome, summary);
            if (outcome == Reading::Read) {
                const QVector<TextHit> found = findLines(path, text, expression);
                const int room = MostHits - summary.hits;
                batch += found.mid(0, room);
                summary.hits += std::min<int>(found.size(), room);
                summary.truncated = found.size() > room;
            }
            ++summary.filesSearched;
            if (sinceBatch.elapsed() >= BatchMilliseconds) {
                const int searched = summary.filesSearched;
                PoolTask::deliver(guard, [this, run, hits = std::exchange(batch, {}), searched, total = paths.size(),
                                          summary] { deliverBatch(run, hits, searched, total, false, summary); });
                sinceBatch.restart();
            }
        }
        summary.cancelled = run->cancelled;
        PoolTask::deliver(guard, [this, run, batch, summary, total = paths.size()] {
            deliverBatch(run, batch, summary.filesSearched, total, true, summary);
        });
    });
    return true;
}

void TextSearch::cancel()
{
    if (current)
        current->cancelled = true;
    current.reset();
    running = false;
}

void TextSearch::deliverBatch(const std::shared_ptr<Run> &run, QVector<TextHit> hits, int searched, int total,
                              bool last, const TextSearchSummary &summary)
{
    if (run != current)
        return; // a cancelled or replaced search
    if (!hits.isEmpty())
        emit hitsFound(hits);
    emit progress(searched, total);
    if (!last)
        return;
    running = false;
    current.reset();
    emit finished(summary);
}
