#include "editor/CallbackFormat.h"

#include <QStringList>

namespace CallbackFormat {

namespace {

// The directive among directives that starts format at position at, or "".
QString directiveAt(const QString &format, qsizetype at, const QStringList &directives)
{
    for (const QString &directive : directives) {
        if (QStringView(format).mid(at, directive.size()) == directive)
            return directive;
    }
    return QString();
}

// Replaces the first directive among directives by value, and "%%" by "%".
QString fill(const QString &format, const QStringList &directives, const QString &value)
{
    QString result;
    result.reserve(format.size() + value.size());
    bool used = false;
    for (qsizetype at = 0; at < format.size(); ++at) {
        const QString directive = used ? QString() : directiveAt(format, at, directives);
        if (!directive.isEmpty()) {
            result.append(value);
            at += directive.size() - 1;
            used = true;
        } else if (QStringView(format).mid(at, 2) == QLatin1String("%%")) {
            result.append(QLatin1Char('%'));
            ++at;
        } else {
            result.append(format.at(at));
        }
    }
    return result;
}

}

QString filled(const QString &format, const QString &text)
{
    return fill(format, {QStringLiteral("%@")}, text);
}

QString filled(const QString &format, double number)
{
    return fill(format, {QStringLiteral("%f")}, QString::number(number, 'f', 6));
}

QString filled(const QString &format, int integer)
{
    return fill(format, {QStringLiteral("%ld"), QStringLiteral("%li"), QStringLiteral("%d"), QStringLiteral("%i")},
                QString::number(integer));
}

}
