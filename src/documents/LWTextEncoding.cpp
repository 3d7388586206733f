#include "documents/LWTextEncoding.h"

#include "app/LWDefaults.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace LWTextEncoding {

namespace {

constexpr quint64 ASCII = 1;
constexpr quint64 Latin1 = 5;

std::optional<QStringConverter::Encoding> qtEncoding(quint64 encoding)
{
    switch (encoding) {
    case 10: return QStringConverter::Utf16;
    case 0x90000100: return QStringConverter::Utf16BE;
    case 0x94000100: return QStringConverter::Utf16LE;
    case 0x8c000100: return QStringConverter::Utf32;
    case 0x98000100: return QStringConverter::Utf32BE;
    case 0x9c000100: return QStringConverter::Utf32LE;
    case Latin1: return QStringConverter::Latin1;
    case ASCII: return std::nullopt;
    default: return QStringConverter::Utf8;
    }
}

struct Mark
{
    QByteArrayView bytes;
    QStringConverter::Encoding byteOrder; // the encoding the mark names
    QStringConverter::Encoding family;    // the same encoding without a stated byte order
};

// The UTF-32 little-endian mark begins like the UTF-16 one, so it is tried first.
const Mark marks[] = {
    {QByteArrayView("\xEF\xBB\xBF", 3), QStringConverter::Utf8, QStringConverter::Utf8},
    {QByteArrayView("\xFF\xFE\x00\x00", 4), QStringConverter::Utf32LE, QStringConverter::Utf32},
    {QByteArrayView("\x00\x00\xFE\xFF", 4), QStringConverter::Utf32BE, QStringConverter::Utf32},
    {QByteArrayView("\xFF\xFE", 2), QStringConverter::Utf16LE, QStringConverter::Utf16},
    {QByteArrayView("\xFE\xFF", 2), QStringConverter::Utf16BE, QStringConverter::Utf16},
};

bool belongsTo(const Mark &mark, std::optional<QStringConverter::Encoding> encoding)
{
    return encoding == mark.byteOrder || encoding == mark.family;
}

// The mark of these bytes when it belongs to the encoding.
const Mark *markNamed(QByteArrayView bytes, std::optional<QStringConverter::Encoding> encoding)
{
    const auto found = std::find_if(std::begin(marks), std::end(marks), [&](const Mark &mark) {
        return mark.bytes == bytes && belongsTo(mark, encoding);
    });
    return found == std::end(marks) ? nullptr : found;
}

bool isAscii(const QByteArray &bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}

quint64 defaultEncoding()
{
    const QString key = QStringLiteral("LW_DefaultEncoding");
    LWDefaults *defaults = LWDefaults::shared();
    if (!defaults->hasKey(key))
        return UTF8;
    return static_cast<quint64>(defaults->integerForKey(key));
}

std::optional<QString> decode(const QByteArray &bytes, quint64 encoding)
{
    const auto qt = qtEncoding(encoding);
    if (!qt) {
        if (!isAscii(bytes))
            return std::nullopt;
        return QString::fromLatin1(bytes);
    }
    QStringDecoder decoder(*qt);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    if (text.isNull())
        text = QLatin1String("");
    return text;
}

QByteArray byteOrderMark(const QByteArray &bytes, quint64 encoding)
{
    const auto qt = qtEncoding(encoding);
    for (const Mark &mark : marks) {
        if (belongsTo(mark, qt) && bytes.startsWith(mark.bytes))
            return mark.bytes.toByteArray();
    }
    return {};
}

std::optional<QByteArray> encode(const QString &text, quint64 encoding, const QByteArray &mark)
{
    const auto qt = qtEncoding(encoding);
    const Mark *named = markNamed(mark, qt);
    QStringEncoder encoder(named ? named->byteOrder : qt.value_or(QStringConverter::Latin1));
    const QByteArray bytes = encoder.encode(text);
    if (encoder.hasError() || (!qt && !isAscii(bytes)))
        return std::nullopt;
    return named ? mark + bytes : bytes;
}

}
