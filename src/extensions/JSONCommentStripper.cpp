#include "extensions/JSONCommentStripper.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

// What a byte means to the scanner. Only a lead byte of C0 to FD starts a
// unit longer than one byte.
enum ByteClass : unsigned char { Plain, Blank, Quote, Slash, LineEnd, Lead };

using ByteTable = std::array<unsigned char, 256>;

constexpr unsigned char unitLengthOf(unsigned byte)
{
    if (byte < 0xC0 || byte > 0xFD)
        return 1;
    if (byte < 0xE0)
        return 2;
    if (byte < 0xF0)
        return 3;
    if (byte < 0xF8)
        return 4;
    return byte < 0xFC ? 5 : 6;
}

constexpr ByteTable makeUnitLengths()
{
    ByteTable table{};
    for (unsigned byte = 0; byte < 256; ++byte)
        table[byte] = unitLengthOf(byte);
    return table;
}

// Classes outside strings: blanks are dropped, quotes and slashes start
// strings and comments.
constexpr ByteTable makeOutsideClasses()
{
    ByteTable table{};
    for (unsigned byte = 0; byte < 256; ++byte)
        table[byte] = unitLengthOf(byte) > 1 ? Lead : Plain;
    table['\t'] = table['\n'] = table['\r'] = table[' '] = Blank;
    table['"'] = Quote;
    table['/'] = Slash;
    return table;
}

// Classes inside strings: everything is kept; quotes and line ends may end it.
constexpr ByteTable makeStringClasses()
{
    ByteTable table{};
    for (unsigned byte = 0; byte < 256; ++byte)
        table[byte] = unitLengthOf(byte) > 1 ? Lead : Plain;
    table['\n'] = table['\r'] = LineEnd;
    table['"'] = Quote;
    return table;
}

constexpr ByteTable unitLengths = makeUnitLengths();
constexpr ByteTable outsideClasses = makeOutsideClasses();
constexpr ByteTable stringClasses = makeStringClasses();

inline unsigned char classOf(const ByteTable &table, const char *p)
{
    return table[static_cast<unsigned char>(*p)];
}

} // namespace

QByteArray JSONCommentStripper::strip(const QByteArray &data, qsizetype skipBytes)
{
    const qsizetype skip = std::clamp<qsizetype>(skipBytes, 0, data.size());
    JSONCommentStripper stripper(data.constData() + skip, data.constData() + data.size());
    stripper.scan();
    if (skip == 0 && !stripper.removedAny())
        return data;
    return stripper.result();
}

JSONCommentStripper::JSONCommentStripper(const char *begin, const char *end)
    : begin(begin), end(end), kept(begin)
{
}

void JSONCommentStripper::scan()
{
    const char *p = begin;
    while (p < end) {
        switch (classOf(outsideClasses, p)) {
        case Plain:
            ++p;
            break;
        case Blank: {
            const char *blanks = p;
            while (++p < end && classOf(outsideClasses, p) == Blank) {
            }
            drop(blanks, p);
            break;
        }
        case Quote:
            p = afterString(p + 1);
            break;
        case Slash:
            p = afterSlash(p);
            break;
        default:
            p = afterUnit(p);
            break;
        }
    }
}

// A slash starts a comment only when an asterisk or another slash follows;
// otherwise it is kept and the next byte is read as usual.
const char *JSONCommentStripper::afterSlash(const char *slash)
{
    const char *next = slash + 1;
    if (next == end || (*next != '*' && *next != '/'))
        return next;
    const char *comment = *next == '*' ? afterBlockComment(next + 1) : afterLineComment(next + 1);
    drop(slash, comment);
    return comment;
}

// p is just past the opening quote. Only the one byte before a quote decides
// whether it is escaped, so a string ending in an escaped backslash stays open.
const char *JSONCommentStripper::afterString(const char *p) const
{
    while (p < end) {
        switch (classOf(stringClasses, p)) {
        case Plain:
            ++p;
            break;
        case Quote:
            if (p[-1] != '\\')
                return p + 1;
            ++p;
            break;
        case LineEnd:
            return p + 1;
        default:
            p = afterUnit(p);
            break;
        }
    }
    return end;
}

// p is just past "/*"; an unclosed comment runs to the end of the input.
const char *JSONCommentStripper::afterBlockComment(const char *p) const
{
    while (p < end) {
        if (*p == '*') {
            if (p + 1 < end && p[1] == '/')
                return p + 2;
            ++p;
        } else {
            p = afterUnit(p);
        }
    }
    return end;
}

// p is just past "//"; the comment stops before the line end, which is then
// dropped as a blank.
const char *JSONCommentStripper::afterLineComment(const char *p) const
{
    while (p < end && *p != '\n' && *p != '\r')
        p = afterUnit(p);
    return p;
}

const char *JSONCommentStripper::afterUnit(const char *p) const
{
    const qsizetype length = unitLengths[static_cast<unsigned char>(*p)];
    return p + std::min<qsizetype>(length, end - p);
}

void JSONCommentStripper::drop(const char *from, const char *to)
{
    if (!out) {
        buffer = QByteArray(end - begin, Qt::Uninitialized);
        out = buffer.data();
    }
    const qsizetype keptLength = from - kept;
    std::memcpy(out, kept, static_cast<size_t>(keptLength));
    out += keptLength;
    kept = to;
}

QByteArray JSONCommentStripper::result()
{
    if (!removedAny())
        return QByteArray(begin, end - begin);
    drop(end, end);
    buffer.truncate(out - buffer.constData());
    buffer.squeeze();
    return buffer;
}
