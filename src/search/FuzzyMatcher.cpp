#include "search/FuzzyMatcher.h"

#include <algorithm>
#include <limits>

namespace FuzzyMatcher {

namespace {

constexpr int Unmatched = std::numeric_limits<int>::min() / 2;
constexpr int LetterScore = 16;
constexpr int RunBonus = 24;
constexpr int WordStartBonus = 20;
constexpr int NameStartBonus = 32;
constexpr int InNameBonus = 8;
constexpr int GapPenalty = 3;

bool isSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('\\') || c == QLatin1Char('_') || c == QLatin1Char('-')
        || c == QLatin1Char('.') || c == QLatin1Char(' ') || c == QLatin1Char('>');
}

// What placing a query letter at this position of the text is worth by itself.
int positionScore(const Candidate &candidate, int position)
{
    int value = LetterScore;
    if (position == candidate.nameStart)
        value += NameStartBonus;
    if (position >= candidate.nameStart)
        value += InNameBonus;
    if (position == 0)
        value += WordStartBonus;
    else {
        const QChar before = candidate.text.at(position - 1);
        const QChar here = candidate.text.at(position);
        if (isSeparator(before) || (before.isLower() && here.isUpper()))
            value += WordStartBonus;
    }
    return value;
}

// The score table, kept per thread: ranking scores hundreds of thousands of
// candidates per keystroke, and a fresh table for each would dominate.
std::vector<int> &scoreTable()
{
    thread_local std::vector<int> table;
    return table;
}

// The best placement of every query letter, by dynamic programming over
// (query letter, text position): best[i][j] is the best score of the first
// i + 1 letters with letter i at position j. Positions are kept only when
// asked for, since ranking needs the scores alone.
class Alignment
{
public:
    Alignment(const QString &query, const Candidate &candidate, bool keepPath)
        : query(query), candidate(candidate), columns(candidate.lowered.size()), keepPath(keepPath),
          best(scoreTable())
    {
        best.assign(static_cast<size_t>(query.size()) * columns, Unmatched);
        if (keepPath)
            previous.assign(best.size(), -1);
    }

    std::optional<int> run()
    {
        for (int letter = 0; letter < query.size(); ++letter)
            if (!fillRow(letter))
                return std::nullopt;
        const int last = query.size() - 1;
        int top = Unmatched;
        for (int position = 0; position < columns; ++position) {
            if (at(last, position) > top) {
                top = at(last, position);
                end = position;
            }
        }
        return top;
    }

    QVector<int> positions() const
    {
        QVector<int> found(query.size());
        int position = end;
        for (int letter = query.size() - 1; letter >= 0; --letter) {
            found[letter] = position;
            position = previous[index(letter, position)];
        }
        return found;
    }

private:
    size_t index(int letter, int position) const { return static_cast<size_t>(letter) * columns + position; }
    int at(int letter, int position) const { return best[index(letter, position)]; }

    // False when this letter cannot be placed anywhere after the ones before it.
    bool fillRow(int letter)
    {
        const QChar wanted = query.at(letter);
        bool placed = false;
        int bestBefore = Unmatched; // best of the previous letter at positions up to j - 2
        int bestBeforeAt = -1;
        for (int position = letter; position < columns; ++position) {
            if (letter > 0 && position >= 2 && at(letter - 1, position - 2) > bestBefore) {
                bestBefore = at(letter - 1, position - 2);
                bestBeforeAt = position - 2;
            }
            if (candidate.lowered.at(position) != wanted)
                continue;
            int value = Unmatched;
            int from = -1;
            if (letter == 0) {
                value = position > 0 && position != candidate.nameStart ? -GapPenalty : 0;
            } else {
                const int adjacent = at(letter - 1, position - 1);
                if (adjacent > Unmatched)
                    value = adjacent + RunBonus, from = position - 1;
                if (bestBefore > Unmatched && bestBefore - GapPenalty > value)
                    value = bestBefore - GapPenalty, from = bestBeforeAt;
                if (value == Unmatched)
                    continue;
            }
            best[index(letter, position)] = value + positionScore(candidate, position);
            if (keepPath)
                previous[index(letter, position)] = from;
            placed = true;
        }
        return placed;
    }

    const QString &query;
    const Candidate &candidate;
    const int columns;
    const bool keepPath;
    std::vector<int> &best;
    std::vector<int> previous;
    int end = -1;
};

}

Candidate Candidate::of(const QString &text, int nameStart)
{
    return {text, FuzzyMatcher::lowered(text), std::clamp(nameStart, 0, static_cast<int>(text.size()))};
}

QString lowered(const QString &text)
{
    QString result = text;
    for (QChar &c : result)
        c = c.toLower();
    return result;
}

bool isSubsequence(const QString &loweredQuery, const QString &loweredText)
{
    const QChar *wanted = loweredQuery.constData();
    const QChar *wantedEnd = wanted + loweredQuery.size();
    for (const QChar c : loweredText) {
        if (wanted == wantedEnd)
            break;
        if (c == *wanted)
            ++wanted;
    }
    return wanted == wantedEnd;
}

std::optional<int> score(const QString &loweredQuery, const Candidate &candidate)
{
    if (loweredQuery.isEmpty())
        return 0;
    if (!isSubsequence(loweredQuery, candidate.lowered))
        return std::nullopt;
    return Alignment(loweredQuery, candidate, false).run();
}

std::optional<Match> match(const QString &loweredQuery, const Candidate &candidate)
{
    if (loweredQuery.isEmpty())
        return Match{};
    if (!isSubsequence(loweredQuery, candidate.lowered))
        return std::nullopt;
    Alignment alignment(loweredQuery, candidate, true);
    const std::optional<int> best = alignment.run();
    if (!best)
        return std::nullopt;
    return Match{*best, alignment.positions()};
}

}
