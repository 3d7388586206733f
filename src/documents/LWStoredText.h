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
    // The text the bytes hold, remembering how they held it: in the preferred
    // encoding, or else the first of the fallbacks that reads them (a mark's
    // own encoding first, Latin-1 last for any text without NUL bytes);
    // nothing (and nothing remembered) when no encoding fits, as for binary
    // content.
    std::optional<QString> read(const QByteArray &bytes, quint64 preferred);

    // The bytes that store the text in the encoding the file was read in
    // (given one for text from no file); nothing when some character has no
    // form in it.
    std::optional<QByteArray> bytesFor(const QString &text, quint64 encoding) const;

private:
    void remember(const QByteArray &bytes, const QString &text, quint64 encoding);

    quint64 readEncoding = 0;
    QByteArray mark;
    // Kept only when the text read does not encode back to the bytes read.
    QString inexactText;
    QByteArray inexactBytes;
};
