#pragma once

#include <QString>
#include <QVector>

#include <optional>

// Fuzzy matching as typed into a quick-open field: the query's letters must
// appear in the text in order (any case), not necessarily next to each other.
// A match scores higher when its letters form runs, fall on word starts
// (after a separator or at a lower-to-upper case change) or on the start of
// the name part, and lie in the name part rather than in the folders before
// it. The best placement of the letters is found, not just the first one.
namespace FuzzyMatcher {

// A text to match against: what is shown, its lower-case form (same length)
// and where its name part starts (the file name of a path, the title of a
// menu command).
struct Candidate
{
    QString text;
    QString lowered;
    int nameStart = 0;

    static Candidate of(const QString &text, int nameStart);
};

struct Match
{
    int score = 0;
    QVector<int> positions; // of the matched letters in the text, ascending
};

// The text with every character in lower case, one for one, so that
// positions in it are positions in the text.
QString lowered(const QString &text);

// True when the lower-case query's letters occur in order in the text; the
// cheap test that comes before scoring.
bool isSubsequence(const QString &loweredQuery, const QString &loweredText);

// The best score of the query in the candidate, or nothing when it does not
// match. An empty query matches everything with score 0.
std::optional<int> score(const QString &loweredQuery, const Candidate &candidate);

// As score(), with the positions of the letters of the best placement.
std::optional<Match> match(const QString &loweredQuery, const Candidate &candidate);

}
