#include "documents/LWStoredText.h"

#include "documents/LWTextEncoding.h"

#include <QtDebug>

std::optional<QString> LWStoredText::read(const QByteArray &bytes, quint64 preferred)
{
    for (const quint64 encoding : LWTextEncoding::readingOrder(bytes, preferred)) {
        std::optional<QString> text = LWTextEncoding::decode(bytes, encoding);
        if (!text)
            continue;
        if (encoding != preferred)
            qInfo("Read as encoding %llu instead of %llu, and saved in it", encoding, preferred);
        remember(bytes, *text, encoding);
        return text;
    }
    return std::nullopt;
}

void LWStoredText::remember(const QByteArray &bytes, const QString &text, quint64 encoding)
{
    readEncoding = encoding;
    mark = LWTextEncoding::byteOrderMark(bytes, encoding);
    const bool exact = LWTextEncoding::encode(text, encoding, mark) == bytes;
    inexactText = exact ? QString() : text;
    inexactBytes = exact ? QByteArray() : bytes;
}

std::optional<QByteArray> LWStoredText::bytesFor(const QString &text, quint64 encoding) const
{
    if (!inexactBytes.isEmpty() && text == inexactText)
        return inexactBytes;
    return LWTextEncoding::encode(text, readEncoding ? readEncoding : encoding, mark);
}
