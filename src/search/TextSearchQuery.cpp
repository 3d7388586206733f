#include "search/TextSearchQuery.h"

namespace {

// Long lines (minified files) are cut to what a results list can show.
constexpr int ShownLineLength = 240;

}

QRegularExpression TextSearchQuery::expression() const
{
    if (text.isEmpty())
        return QRegularExpression(QStringLiteral("("));
    QString pattern = regularExpression ? text : QRegularExpression::escape(text);
    if (wholeWord)
        pattern = QStringLiteral("\\b(?:%1)\\b").arg(pattern);
    // ^ and $ stand for the start and end of each line, as the results are lines.
    QRegularExpression::PatternOptions options =
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::MultilineOption;
    if (!caseSensitive)
        options |= QRegularExpression::CaseInsensitiveOption;
    return QRegularExpression(pattern, options);
}

QVector<TextHit> findLines(const QString &path, const QString &content, const QRegularExpression &expression)
{
    QVector<TextHit> hits;
    int line = 1;
    qsizetype counted = 0; // newlines before this offset are in line
    qsizetype nextLineStart = 0;
    auto matches = expression.globalMatch(content);
    while (matches.hasNext()) {
        const qsizetype at = matches.next().capturedStart();
        if (at < nextLineStart)
            continue; // this line is already listed
        line += QStringView(content).mid(counted, at - counted).count(QLatin1Char('\n'));
        counted = at;
        const qsizetype lineStart = at == 0 ? 0 : content.lastIndexOf(QLatin1Char('\n'), at - 1) + 1;
        qsizetype lineEnd = content.indexOf(QLatin1Char('\n'), at);
        if (lineEnd < 0)
            lineEnd = content.size();
        nextLineStart = lineEnd + 1;
        QString shown = content.mid(lineStart, std::min<qsizetype>(lineEnd - lineStart, ShownLineLength));
        if (shown.endsWith(QLatin1Char('\r')))
            shown.chop(1);
        hits.append({path, line, shown});
    }
    return hits;
}
