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

// The byte-order mark the bytes begin with when it is one of the encoding's
// own (either UTF-16 mark for UTF-16 of unstated byte order, only its own
// for a stated one), else empty. Decoding drops such a mark.
QByteArray byteOrderMark(const QByteArray &bytes, quint64 encoding);

// The text as bytes in the encoding, after the mark and in the byte order it
// names (a mark found by byteOrderMark, or none), or nothing when some
// character has no form in the encoding (writing a substitute would lose
// that text).
std::optional<QByteArray> encode(const QString &text, quint64 encoding, const QByteArray &mark = {});

}
