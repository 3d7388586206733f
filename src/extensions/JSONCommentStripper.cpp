#include "extensions/JSONCommentStripper.h"

#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// The length of the UTF-8 unit a byte starts; only C0 to FD start units longer
// than one byte.
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

constexpr std::array<unsigned char, 256> makeUnitLengths()
{
    std::array<unsigned char, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte)
        table[byte] = unitLengthOf(byte);
    return table;
}

constexpr std::array<unsigned char, 256> unitLengths = makeUnitLengths();

constexpr qsizetype shortRun = 16;
constexpr qsizetype nearBytes = 2;

inline bool isBlank(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
}

inline bool isLineEnd(char byte)
{
    return byte == '\n' || byte == '\r';
}

// Whether a byte may need a closer look: one of the needles, or a byte of C0
// and above (every lead byte, plus FE and FF, which are units of one byte).
template <char... Needles>
inline bool isCandidate(char byte)
{
    return ((byte == Needles) || ...) || static_cast<unsigned char>(byte) >= 0xC0;
}

// The first candidate byte at or after p, or end. Runs of ordinary bytes are
// passed over sixteen at a time where the processor allows.
template <char... Needles>
const char *findCandidate(const char *p, const char *end)
{
    // Candidates often follow each other within a byte or two: a look at
    // those bytes alone is cheaper than a sixteen-byte scan.
    for (const char *nearEnd = p + std::min<qsizetype>(nearBytes, end - p); p < nearEnd; ++p) {
        if (isCandidate<Needles...>(*p))
            return p;
    }
#if defined(__SSE2__)
    const __m128i leadBits = _mm_set1_epi8(char(0xC0));
    for (; end - p >= 16; p += 16) {
        const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
        __m128i hits = _mm_cmpeq_epi8(_mm_and_si128(chunk, leadBits), leadBits);
        ((hits = _mm_or_si128(hits, _mm_cmpeq_epi8(chunk, _mm_set1_epi8(Needles)))), ...);
        const int mask = _mm_movemask_epi8(hits);
        if (mask != 0)
            return p + qCountTrailingZeroBits(quint32(mask));
    }
#endif
    while (p < end && !isCandidate<Needles...>(*p))
        ++p;
    return p;
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
    while ((p = findCandidate<'\t', '\n', '\r', ' ', '"', '/'>(p, end)) < end) {
        if (isBlank(*p)) {
            const char *blanks = p;
            while (++p < end && isBlank(*p)) {
            }
            drop(blanks, p);
        } else if (*p == '"') {
            p = afterString(p + 1);
        } else if (*p == '/') {
            p = afterSlash(p);
        } else {
            p = afterUnit(p);
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
    while ((p = findCandidate<'"', '\n', '\r'>(p, end)) < end) {
        if (*p == '"' && p[-1] != '\\')
            return p + 1;
        if (isLineEnd(*p))
            return p + 1;
        p = afterUnit(p);
    }
    return end;
}

// p is just past "/*"; an unclosed comment runs to the end of the input.
const char *JSONCommentStripper::afterBlockComment(const char *p) const
{
    while ((p = findCandidate<'*'>(p, end)) < end) {
        if (*p != '*')
            p = afterUnit(p);
        else if (p + 1 < end && p[1] == '/')
            return p + 2;
        else
            ++p;
    }
    return end;
}

// p is just past "//"; the comment stops before the line end, which is then
// dropped as a blank.
const char *JSONCommentStripper::afterLineComment(const char *p) const
{
    while ((p = findCandidate<'\n', '\r'>(p, end)) < end && !isLineEnd(*p))
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
    // The output never runs ahead of the input, so while sixteen input bytes
    // remain from kept, sixteen bytes also fit at out: short runs, the usual
    // case, are moved with one fixed-size copy.
    const qsizetype keptLength = from - kept;
    if (keptLength <= shortRun && end - kept >= shortRun)
        std::memcpy(out, kept, shortRun);
    else
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
