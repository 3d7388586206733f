#pragma once

#include "search/TextSearchQuery.h"

#include <QObject>
#include <QStringList>

#include <atomic>
#include <memory>

// The outcome of one search through files.
struct TextSearchSummary
{
    int filesSearched = 0;
    int hits = 0;
    int skippedBinary = 0;
    int skippedLarge = 0;
    int unreadable = 0;
    bool cancelled = false;
    bool truncated = false; // stopped at the most hits a list shows
};

// Searches files on disk for a query on a pool thread. Hits come in batches
// as they are found, with the count of files searched so far; files over
// the size limit and files that look binary (a zero byte near the start)
// are skipped and counted. One search at a time: starting another cancels
// the one running, whose late batches are dropped.
class TextSearch : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 SizeLimit = 10 * 1024 * 1024;
    static constexpr int MostHits = 20000;

    explicit TextSearch(QObject *parent = nullptr);
    ~TextSearch() override;

    // False (with the reason in error) when the query cannot be searched for.
    bool start(const QStringList &paths, const TextSearchQuery &query, QString *error = nullptr);
    void cancel();
    bool isRunning() const { return running; }

signals:
    void hitsFound(const QVector<TextHit> &hits);
    void progress(int filesSearched, int filesTotal);
    void finished(const TextSearchSummary &summary);

private:
    struct Run;
    void deliverBatch(const std::shared_ptr<Run> &run, QVector<TextHit> hits, int searched, int total, bool last,
                      const TextSearchSummary &summary);

    std::shared_ptr<Run> current;
    bool running = false;
};
