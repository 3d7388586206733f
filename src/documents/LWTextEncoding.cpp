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

std::optional<QByteArray> encode(const QString &text, quint64 encoding)
{
    const auto qt = qtEncoding(encoding);
    QStringEncoder encoder(qt.value_or(QStringConverter::Latin1));
    const QByteArray bytes = encoder.encode(text);
    if (encoder.hasError() || (!qt && !isAscii(bytes)))
        return std::nullopt;
    return bytes;
}

}
