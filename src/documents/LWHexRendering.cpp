#include "documents/LWHexRendering.h"

#include <array>

namespace LWHexRendering {

namespace {

constexpr qsizetype BytesPerGroup = 4;
constexpr qsizetype BytesPerLine = 32;
constexpr qsizetype CharsPerLine = 72;

// Two hexadecimal digits per byte value, looked up rather than computed.
const std::array<char16_t, 512> &digitPairs()
{
    static const std::array<char16_t, 512> table = [] {
        std::array<char16_t, 512> pairs{};
        const char *digits = "0123456789abcdef";
        for (int value = 0; value < 256; ++value) {
            pairs[2 * value] = char16_t(digits[value >> 4]);
            pairs[2 * value + 1] = char16_t(digits[value & 15]);
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
    for (qsizetype i = 0; i < count; ++i) {
        if (i > 0 && i % BytesPerGroup == 0) {
            *out++ = u' ';
            if (i % BytesPerLine == 0)
                *out++ = u'\n';
        }
        *out++ = pairs[2 * in[i]];
        *out++ = pairs[2 * in[i] + 1];
    }
    return text;
}

}
