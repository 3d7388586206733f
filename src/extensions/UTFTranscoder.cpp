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

} // namespace

std::optional<QByteArray> UTFTranscoder::utf8FromUTF16(QByteArrayView units, QSysInfo::Endian order)
{
    if (units.size() % 2 != 0)
        return std::nullopt;
    QByteArray out;
    out.reserve(units.size());
    for (qsizetype i = 0; i < units.size(); i += 2) {
        char32_t codePoint = readUnit<quint16>(units.data() + i, order);
        if (isLowSurrogate(codePoint))
            return std::nullopt;
        if (isHighSurrogate(codePoint)) {
            i += 2;
            const char32_t low = i < units.size() ? readUnit<quint16>(units.data() + i, order) : 0;
            if (!isLowSurrogate(low))
                return std::nullopt;
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
        }
        appendUTF8(out, codePoint);
    }
    return out;
}

std::optional<QByteArray> UTFTranscoder::utf8FromUTF32(QByteArrayView units, QSysInfo::Endian order)
{
    if (units.size() % 4 != 0)
        return std::nullopt;
    QByteArray out;
    out.reserve(units.size());
    for (qsizetype i = 0; i < units.size(); i += 4) {
        const char32_t codePoint = readUnit<quint32>(units.data() + i, order);
        if (codePoint > 0x10FFFF || isHighSurrogate(codePoint) || isLowSurrogate(codePoint))
            return std::nullopt;
        appendUTF8(out, codePoint);
    }
    return out;
}
