#pragma once

#include "search/FuzzyRanking.h"

#include <QObject>
#include <QString>

#include <optional>

// Ranks queries against a candidate list on a pool thread, one query at a
// time: a query asked for while another runs waits, and only the newest
// waiting one runs, so fast typing never piles up work. Results arrive on
// the window's thread with the candidates they index.
class BackgroundFuzzySearch : public QObject
{
    Q_OBJECT

public:
    explicit BackgroundFuzzySearch(int limit, QObject *parent = nullptr);

    // Used from the next query on.
    void setCandidates(FuzzyRanking::Candidates candidates);
    void search(const QString &query);

signals:
    void resultsReady(const QString &query, const std::vector<FuzzyRanking::Result> &results,
                      const FuzzyRanking::Candidates &candidates);

private:
    void startNext();

    const int limit;
    // Handed to the pool thread while a query runs, never touched here then.
    std::shared_ptr<FuzzyRanking> ranking = std::make_shared<FuzzyRanking>();
    bool running = false;
    std::optional<QString> waitingQuery;
    std::optional<FuzzyRanking::Candidates> waitingCandidates;
};
