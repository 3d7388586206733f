#include "search/FuzzyRanking.h"

#include <algorithm>
#include <numeric>

FuzzyRanking::FuzzyRanking(Candidates candidates)
    : all(candidates ? std::move(candidates) : std::make_shared<const std::vector<FuzzyMatcher::Candidate>>())
{
}

std::vector<FuzzyRanking::Result> FuzzyRanking::rank(const QString &query, int limit)
{
    const QString loweredQuery = FuzzyMatcher::lowered(query);
    std::vector<Scored> scored;
    std::vector<int> matched;
    for (const int index : candidatesFor(loweredQuery)) {
        const std::optional<int> score = FuzzyMatcher::score(loweredQuery, (*all)[index]);
        if (!score)
            continue;
        matched.push_back(index);
        scored.push_back({index, *score});
    }
    lastQuery = loweredQuery;
    lastMatched = std::move(matched);
    haveLast = true;

    const auto top = scored.begin() + std::min<size_t>(std::max(limit, 0), scored.size());
    std::partial_sort(scored.begin(), top, scored.end(),
                      [this](const Scored &a, const Scored &b) { return ranksBefore(a, b); });
    std::vector<Result> results;
    for (auto entry = scored.begin(); entry != top; ++entry)
        results.push_back({entry->candidate, *FuzzyMatcher::match(loweredQuery, (*all)[entry->candidate])});
    return results;
}

// A longer query matches only where its beginning matched.
std::vector<int> FuzzyRanking::candidatesFor(const QString &loweredQuery) const
{
    if (haveLast && loweredQuery.startsWith(lastQuery))
        return lastMatched;
    std::vector<int> every(all->size());
    std::iota(every.begin(), every.end(), 0);
    return every;
}

bool FuzzyRanking::ranksBefore(const Scored &a, const Scored &b) const
{
    if (a.score != b.score)
        return a.score > b.score;
    const QString &textA = (*all)[a.candidate].text;
    const QString &textB = (*all)[b.candidate].text;
    if (textA.size() != textB.size())
        return textA.size() < textB.size();
    return textA < textB;
}
