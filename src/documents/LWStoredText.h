#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// How a file stored the text that was read from it, so that writing the text
// back keeps the file's form: its byte-order mark goes back in front, and
// text that is still as it was read goes back byte for byte, even where
// decoding and encoding again would not give the same bytes (a sequence the
// decoder let through but the encoder writes differently, a cut-off last
// unit). A default value knows no file: text is simply encoded.
class LWStoredText
{
public:
    // The text the bytes hold in the encoding, remembering how they held it;
    // nothing (and nothing remembered) when they are not valid in it.
    std::optional<QString> read(const QByteArray &bytes, quint64 encoding);

    // The bytes that store the text in the encoding; nothing when some
    // character has no form in it.
    std::optional<QByteArray> bytesFor(const QString &text, quint64 encoding) const;

private:
    QByteArray mark;
    // Kept only when the text read does not encode back to the bytes read.
    QString inexactText;
    QByteArray inexactBytes;
};
