#include "editor/JavaScriptEscape.h"

namespace {

// The second character of the escape that stands for c, or 0 when c is kept.
constexpr char16_t escapeLetter(char16_t c)
{
    switch (c) {
    case u'\\': return u'\\';
    case u'\n':
    case u'\r': return u'n';
    case u'"': return u'"';
    case u'\'': return u'\'';
    default: return 0;
    }
}

}

QString escapedForJavascript(const QString &value)
{
    const char16_t *begin = reinterpret_cast<const char16_t *>(value.constData());
    const char16_t *end = begin + value.size();
    qsizetype extra = 0;
    for (const char16_t *c = begin; c != end; ++c)
        extra += escapeLetter(*c) != 0;
    if (extra == 0)
        return value;
    QString escaped(value.size() + extra, Qt::Uninitialized);
    char16_t *out = reinterpret_cast<char16_t *>(escaped.data());
    for (const char16_t *c = begin; c != end; ++c) {
        if (const char16_t letter = escapeLetter(*c)) {
            *out++ = u'\\';
            *out++ = letter;
        } else {
            *out++ = *c;
        }
    }
    return escaped;
}
