#include "search/BackgroundFuzzySearch.h"

#include "search/PoolTask.h"

BackgroundFuzzySearch::BackgroundFuzzySearch(int limit, QObject *parent) : QObject(parent), limit(limit) {}

void BackgroundFuzzySearch::setCandidates(FuzzyRanking::Candidates candidates)
{
    waitingCandidates = std::move(candidates);
}

void BackgroundFuzzySearch::search(const QString &query)
{
    waitingQuery = query;
    if (!running)
        startNext();
}

void BackgroundFuzzySearch::startNext()
{
    if (!waitingQuery)
        return;
    if (waitingCandidates)
        ranking = std::make_shared<FuzzyRanking>(*std::exchange(waitingCandidates, std::nullopt));
    const QString query = *std::exchange(waitingQuery, std::nullopt);
    running = true;
    const std::shared_ptr<FuzzyRanking> used = ranking;
    const int count = limit;
    PoolTask::run<std::vector<FuzzyRanking::Result>>(
        this, [used, query, count] { return used->rank(query, count); },
        [this, used, query](std::vector<FuzzyRanking::Result> results) {
            running = false;
            emit resultsReady(query, results, used->candidates());
            startNext();
        });
}
