#include "terminal/TailBuffer.h"

namespace {
// How far past the cut the end of a line is looked for, so the kept text
// starts on a line of its own when it can.
constexpr qsizetype LineSearch = 4096;
}

void TailBuffer::append(const QString &more)
{
    text += more;
    // Trimming moves the kept text, so it waits until twice the capacity
    // has gathered: each character is then moved a bounded number of times.
    if (text.size() > 2 * capacity)
        dropOldest();
}

void TailBuffer::dropOldest()
{
    qsizetype cut = text.size() - capacity;
    const bool atLineStart = text.at(cut - 1) == QLatin1Char('\n');
    const qsizetype lineEnd = atLineStart ? cut - 1 : text.indexOf(QLatin1Char('\n'), cut);
    if (lineEnd >= 0 && lineEnd - cut < LineSearch)
        cut = lineEnd + 1;
    else if (text.at(cut).isLowSurrogate())
        ++cut;  // never split a character in two
    text.remove(0, cut);
    dropped += cut;
}

QString TailBuffer::take()
{
    if (text.size() > capacity)
        dropOldest();
    QString taken;
    if (dropped > 0)
        taken = QStringLiteral("\u2026 %1 characters of output not shown \u2026\n").arg(dropped);
    taken += text;
    text.clear();
    dropped = 0;
    return taken;
}
