#include "editor/JavaScriptEscape.h"

#include <cstring>

namespace {

inline bool needsEscape(char16_t c)
{
    return c == u'\\' || c == u'\n' || c == u'\r' || c == u'"' || c == u'\'';
}

inline char16_t escapeLetter(char16_t c)
{
    return c == u'\n' || c == u'\r' ? u'n' : c;
}

qsizetype countEscapes(const char16_t *begin, const char16_t *end)
{
    qsizetype count = 0;
    for (const char16_t *c = begin; c != end; ++c)
        count += needsEscape(*c);
    return count;
}

}

// Counts first so the result is allocated once, then copies the runs between
// escaped characters whole.
QString escapedForJavascript(const QString &value)
{
    const char16_t *begin = reinterpret_cast<const char16_t *>(value.constData());
    const char16_t *end = begin + value.size();
    const qsizetype escapes = countEscapes(begin, end);
    if (escapes == 0)
        return value;
    QString escaped(value.size() + escapes, Qt::Uninitialized);
    char16_t *out = reinterpret_cast<char16_t *>(escaped.data());
    const char16_t *run = begin;
    for (const char16_t *c = begin; c != end; ++c) {
        if (!needsEscape(*c))
            continue;
        std::memcpy(out, run, (c - run) * sizeof(char16_t));
        out += c - run;
        *out++ = u'\\';
        *out++ = escapeLetter(*c);
        run = c + 1;
    }
    std::memcpy(out, run, (end - run) * sizeof(char16_t));
    return escaped;
}
