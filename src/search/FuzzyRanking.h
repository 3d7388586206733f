#pragma once

#include "search/FuzzyMatcher.h"

#include <QString>

#include <memory>
#include <vector>

// The best matches of a query among a fixed list of candidates, best first:
// higher score, then the shorter text, then the text in order. A query that
// extends the previous one searches only the candidates the previous one
// matched, so typing one more letter gets cheaper, not dearer.
class FuzzyRanking
{
public:
    using Candidates = std::shared_ptr<const std::vector<FuzzyMatcher::Candidate>>;

    struct Result
    {
        int candidate; // index into the candidates
        FuzzyMatcher::Match match;
    };

    explicit FuzzyRanking(Candidates candidates = {});

    const Candidates &candidates() const { return all; }

    // At most limit results; the matched letters are found only for them.
    std::vector<Result> rank(const QString &query, int limit);

private:
    struct Scored
    {
        int candidate;
        int score;
    };

    std::vector<int> candidatesFor(const QString &loweredQuery) const;
    bool ranksBefore(const Scored &a, const Scored &b) const;

    Candidates all;
    QString lastQuery;
    bool haveLast = false;
    std::vector<int> lastMatched;
};
