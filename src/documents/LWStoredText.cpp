#include "documents/LWStoredText.h"

#include "documents/LWTextEncoding.h"

std::optional<QString> LWStoredText::read(const QByteArray &bytes, quint64 encoding)
{
    std::optional<QString> text = LWTextEncoding::decode(bytes, encoding);
    if (!text)
        return std::nullopt;
    mark = LWTextEncoding::byteOrderMark(bytes, encoding);
    const bool exact = LWTextEncoding::encode(*text, encoding, mark) == bytes;
    inexactText = exact ? QString() : *text;
    inexactBytes = exact ? QByteArray() : bytes;
    return text;
}

std::optional<QByteArray> LWStoredText::bytesFor(const QString &text, quint64 encoding) const
{
    if (!inexactBytes.isEmpty() && text == inexactText)
        return inexactBytes;
    return LWTextEncoding::encode(text, encoding, mark);
}
