#pragma once

#include <QByteArray>

// Removes comments and layout whitespace from UTF-8 JSON text in one pass.
//
// Outside strings, tab, line feed, carriage return and space are dropped, and
// "/* ... */" and "// ..." comments are skipped. A string runs from a double
// quote to the next double quote whose preceding byte is not a backslash, or
// to the next line end, whichever comes first, and is kept byte for byte.
// Bytes of 0x80 and above travel as whole UTF-8 units whose length comes from
// their first byte, in strings and comments alike. Nothing is ever read past
// the end of the input: a unit cut short by the end is copied as far as it goes.
class JSONCommentStripper
{
public:
    // The stripped text, starting skipBytes into the data. When nothing is
    // removed (and nothing skipped) the very input array is returned, shared.
    static QByteArray strip(const QByteArray &data, qsizetype skipBytes);

private:
    JSONCommentStripper(const char *begin, const char *end);

    void scan();
    const char *afterSlash(const char *slash);
    const char *afterString(const char *p) const;
    const char *afterBlockComment(const char *p) const;
    const char *afterLineComment(const char *p) const;
    const char *afterUnit(const char *p) const;

    // Leaves the bytes [from, to) out of the result.
    void drop(const char *from, const char *to);
    bool removedAny() const { return out != nullptr; }
    QByteArray result();

    const char *const begin;
    const char *const end;
    const char *kept; // start of the bytes kept since the last drop
    QByteArray buffer;
    char *out = nullptr; // write position in buffer, allocated on the first drop
};
