#include "extensions/UTFTranscoder.h"

#include <QtEndian>

namespace {

template <typename Unit>
Unit readUnit(const char *bytes, QSysInfo::Endian order)
{
    return order == QSysInfo::BigEndian ? qFromBigEndian<Unit>(bytes) : qFromLittleEndian<Unit>(bytes);
}

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void appendUTF8(QByteArray &out, char32_t codePoint)
{
    if (codePoint < 0x80) {
        out.append(char(codePoint));
        return;
    }
    char bytes[4];
    int count = codePoint < 0x800 ? 2 : codePoint < 0x10000 ? 3 : 4;
    for (int i = count - 1; i > 0; --i) {
        bytes[i] = char(0x80 | (codePoint & 0x3F));
        codePoint >>= 6;
    }
    static const unsigned char leadMarks[] = {0, 0, 0xC0, 0xE0, 0xF0};
    bytes[0] = char(leadMarks[count] | codePoint);
    out.append(bytes, count);
}

// Reads the code point starting at units[i] and moves i past it; false when
// the text is malformed there.
using CodePointReader = bool (*)(QByteArrayView units, qsizetype &i, QSysInfo::Endian order, char32_t &codePoint);

bool readUTF16(QByteArrayView units, qsizetype &i, QSysInfo::Endian order, char32_t &codePoint)
{
    codePoint = readUnit<quint16>(units.data() + i, order);
    i += 2;
    if (!isHighSurrogate(codePoint))
        return !isLowSurrogate(codePoint);
    if (i >= units.size())
        return false;
    const char32_t low = readUnit<quint16>(units.data() + i, order);
    i += 2;
    codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
    return isLowSurrogate(low);
}

bool readUTF32(QByteArrayView units, qsizetype &i, QSysInfo::Endian order, char32_t &codePoint)
{
    codePoint = readUnit<quint32>(units.data() + i, order);
    i += 4;
    return codePoint <= 0x10FFFF && !isHighSurrogate(codePoint) && !isLowSurrogate(codePoint);
}

std::optional<QByteArray> transcode(QByteArrayView units, qsizetype unitSize, QSysInfo::Endian order,
                                    CodePointReader read)
{
    if (units.size() % unitSize != 0)
        return std::nullopt;
    QByteArray out;
    out.reserve(units.size());
    char32_t codePoint = 0;
    for (qsizetype i = 0; i < units.size();) {
        if (!read(units, i, order, codePoint))
            return std::nullopt;
        appendUTF8(out, codePoint);
    }
    return out;
}

} // namespace

std::optional<QByteArray> UTFTranscoder::utf8FromUTF16(QByteArrayView units, QSysInfo::Endian order)
{
    return transcode(units, 2, order, readUTF16);
}

std::optional<QByteArray> UTFTranscoder::utf8FromUTF32(QByteArrayView units, QSysInfo::Endian order)
{
    return transcode(units, 4, order, readUTF32);
}
