#pragma once

#include <QRegularExpression>
#include <QString>
#include <QVector>

// What find in files looks for and how: the text, taken literally or as a
// regular expression, in any case or only as written, anywhere or only as a
// whole word.
struct TextSearchQuery
{
    QString text;
    bool caseSensitive = false;
    bool regularExpression = false;
    bool wholeWord = false;

    // The expression that finds the text; invalid for an empty text or a
    // broken regular expression (errorString() says why).
    QRegularExpression expression() const;
};

// One line that holds the text.
struct TextHit
{
    QString path;
    int line = 0; // from 1
    QString lineText;
};

// The lines of the content that hold a match of the expression, one hit per
// line, in order.
QVector<TextHit> findLines(const QString &path, const QString &content, const QRegularExpression &expression);
