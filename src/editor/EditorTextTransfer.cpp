#include "editor/EditorTextTransfer.h"

#include "editor/JavaScriptEscape.h"
#include "editor/TextOffers.h"

#include <QJsonObject>

QString EditorTextTransfer::newTag()
{
    static quint64 made = 0;
    return QStringLiteral("s%1").arg(++made);
}

QJsonValue EditorTextTransfer::content(const QString &text, bool pageMayHoldIt)
{
    if (!TextOffers::isServed() || (text.size() <= LiteralLimit && !pageMayHoldIt))
        return text;
    return QJsonObject{{QStringLiteral("url"), TextOffers::offer(text)}};
}

QString EditorTextTransfer::stateQuery(const QString &knownTag)
{
    if (knownTag.isEmpty())
        return QStringLiteral("lw.getState()");
    return QStringLiteral("lw.getState('%1')").arg(escapedForJavascript(knownTag));
}
