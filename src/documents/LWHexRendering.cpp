#include "documents/LWHexRendering.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace LWHexRendering {

namespace {

constexpr qsizetype BytesPerGroup = 4;
constexpr qsizetype GroupsPerLine = 8;
constexpr qsizetype CharsPerLine = 72;

// The two hexadecimal digits of each byte value as one 32-bit unit, so that
// a byte is written with a single store.
const std::array<quint32, 256> &digitPairs()
{
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> pairs{};
        const char *digits = "0123456789abcdef";
        for (int value = 0; value < 256; ++value) {
            const char16_t chars[2] = {char16_t(digits[value >> 4]), char16_t(digits[value & 15])};
            std::memcpy(&pairs[value], chars, sizeof chars);
        }
        return pairs;
    }();
    return table;
}

// Length of the single spaced text before it is cut into lines.
qsizetype spacedLength(qsizetype byteCount)
{
    const qsizetype groups = (byteCount + BytesPerGroup - 1) / BytesPerGroup;
    return byteCount * 2 + (groups - 1);
}

}

QString render(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return QLatin1String("");
    const qsizetype spaced = spacedLength(bytes.size());
    const qsizetype breaks = (spaced - 1) / CharsPerLine;
    QString text(spaced + breaks, Qt::Uninitialized);
    char16_t *out = reinterpret_cast<char16_t *>(text.data());
    const auto &pairs = digitPairs();
    const auto *in = reinterpret_cast<const unsigned char *>(bytes.constData());
    const qsizetype count = bytes.size();
    for (qsizetype start = 0, group = 0; start < count; start += BytesPerGroup, ++group) {
        if (group > 0) {
            *out++ = u' ';
            if (group % GroupsPerLine == 0)
                *out++ = u'\n';
        }
        const qsizetype end = std::min(start + BytesPerGroup, count);
        for (qsizetype index = start; index < end; ++index, out += 2)
            std::memcpy(out, &pairs[in[index]], sizeof(quint32));
    }
    return text;
}

}
