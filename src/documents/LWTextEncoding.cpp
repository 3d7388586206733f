#include "documents/LWTextEncoding.h"

#include "app/LWDefaults.h"

#include <QList>
#include <QStringDecoder>
#include <QtDebug>
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

// Encodings that Qt converts through ICU, by the name ICU knows them by.
struct Named
{
    quint64 number;
    const char *name;
};

const Named namedEncodings[] = {
    {3, "EUC-JP"},         {8, "Shift_JIS"},       {9, "ISO-8859-2"},       {11, "windows-1251"},
    {12, "windows-1252"},  {13, "windows-1253"},   {14, "windows-1254"},    {15, "windows-1250"},
    {21, "ISO-2022-JP"},   {30, "macintosh"},      {0x80000632, "GB18030"}, {0x8000020F, "ISO-8859-15"},
    {0x80000A03, "Big5"},  {0x80000940, "EUC-KR"}, {0x80000A02, "KOI8-R"},
};

const char *icuName(quint64 encoding)
{
    const auto found = std::find_if(std::begin(namedEncodings), std::end(namedEncodings),
                                    [encoding](const Named &named) { return named.number == encoding; });
    return found == std::end(namedEncodings) ? nullptr : found->name;
}

bool isBuiltIn(quint64 encoding)
{
    switch (encoding) {
    case ASCII: case UTF8: case Latin1: case 10: case 0x90000100: case 0x94000100:
    case 0x8c000100: case 0x98000100: case 0x9c000100:
        return true;
    default:
        return false;
    }
}

std::optional<QString> decodeNamed(const QByteArray &bytes, const char *name)
{
    // Stateless: a sequence cut off at the end is an error, not a wait for more.
    QStringDecoder decoder(name, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text.isNull() ? QLatin1String("") : text;
}

std::optional<QByteArray> encodeNamed(const QString &text, const char *name)
{
    QStringEncoder encoder(name);
    const QByteArray bytes = encoder.encode(text);
    if (encoder.hasError())
        return std::nullopt;
    return bytes;
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
    const auto stored = static_cast<quint64>(defaults->integerForKey(key));
    if (!isSupported(stored)) {
        qWarning("The default encoding %llu is not supported; UTF-8 is used", stored);
        return UTF8;
    }
    return stored;
}

bool isSupported(quint64 encoding)
{
    if (isBuiltIn(encoding))
        return true;
    const char *name = icuName(encoding);
    return name && QStringDecoder(name).isValid();
}

quint64 markedEncoding(const QByteArray &bytes)
{
    for (const Mark &mark : marks) {
        if (!bytes.startsWith(mark.bytes))
            continue;
        if (mark.family == QStringConverter::Utf16)
            return 10;
        return mark.family == QStringConverter::Utf32 ? 0x8c000100 : UTF8;
    }
    return 0;
}

bool mayHoldNulBytes(const QByteArray &start, quint64 preferred)
{
    const auto wide = [](quint64 encoding) {
        const auto qt = isBuiltIn(encoding) ? qtEncoding(encoding) : std::nullopt;
        return qt && *qt != QStringConverter::Utf8 && *qt != QStringConverter::Latin1;
    };
    return wide(markedEncoding(start)) || wide(preferred);
}

QList<quint64> readingOrder(const QByteArray &bytes, quint64 preferred)
{
    QList<quint64> order;
    for (quint64 candidate : {markedEncoding(bytes), preferred, UTF8}) {
        if (candidate != 0 && !order.contains(candidate))
            order << candidate;
    }
    if (!bytes.contains('\0') && !order.contains(Latin1))
        order << Latin1;
    return order;
}

std::optional<QString> decode(const QByteArray &bytes, quint64 encoding)
{
    if (const char *name = icuName(encoding))
        return decodeNamed(bytes, name);
    const auto qt = qtEncoding(encoding);
    if (!qt) {
        if (!isAscii(bytes))
            return std::nullopt;
        return QString::fromLatin1(bytes);
    }
    // UTF-8 cut off at the end is not UTF-8 (another encoding may read it);
    // a cut-off UTF-16/32 unit is kept and written back as read.
    QStringDecoder decoder(*qt, *qt == QStringConverter::Utf8 ? QStringConverter::Flag::Stateless
                                                               : QStringConverter::Flag::Default);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    if (text.isNull())
        text = QLatin1String("");
    return text;
}

QByteArray byteOrderMark(const QByteArray &bytes, quint64 encoding)
{
    if (icuName(encoding))
        return {};
    const auto qt = qtEncoding(encoding);
    for (const Mark &mark : marks) {
        if (belongsTo(mark, qt) && bytes.startsWith(mark.bytes))
            return mark.bytes.toByteArray();
    }
    return {};
}

std::optional<QByteArray> encode(const QString &text, quint64 encoding, const QByteArray &mark)
{
    if (const char *name = icuName(encoding))
        return encodeNamed(text, name);
    const auto qt = qtEncoding(encoding);
    const Mark *named = markNamed(mark, qt);
    QStringEncoder encoder(named ? named->byteOrder : qt.value_or(QStringConverter::Latin1));
    const QByteArray bytes = encoder.encode(text);
    if (encoder.hasError() || (!qt && !isAscii(bytes)))
        return std::nullopt;
    return named ? mark + bytes : bytes;
}

}
