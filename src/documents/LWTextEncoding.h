#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Text encodings named by the platform's string-encoding numbers, as stored in
// the "LW_DefaultEncoding" setting (4 is UTF-8). Unknown numbers mean UTF-8.
namespace LWTextEncoding {

constexpr quint64 UTF8 = 4;

// The encoding number from the user's settings, UTF-8 when unset.
quint64 defaultEncoding();

// The text of the bytes, or nothing when they are not valid in the encoding.
std::optional<QString> decode(const QByteArray &bytes, quint64 encoding);

// The text as bytes in the encoding, or nothing when some character has no
// form in it (writing a substitute would lose that text).
std::optional<QByteArray> encode(const QString &text, quint64 encoding);

}
