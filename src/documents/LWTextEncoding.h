#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// Text encodings named by the platform's string-encoding numbers, as stored in
// the "LW_DefaultEncoding" setting (4 is UTF-8): ASCII, UTF-8, Latin-1 and
// UTF-16/32 through Qt's own converters, the common Windows, ISO, Japanese,
// Chinese, Korean and Cyrillic ones through ICU. Unknown numbers mean UTF-8.
namespace LWTextEncoding {

constexpr quint64 UTF8 = 4;

// The encoding number from the user's settings, UTF-8 when unset or not
// supported (which is logged).
quint64 defaultEncoding();

// Whether the number names an encoding this build can convert.
bool isSupported(quint64 encoding);

// UTF-8, UTF-16 or UTF-32 when the bytes begin with that encoding's
// byte-order mark, else 0.
quint64 markedEncoding(const QByteArray &bytes);

// Whether text that begins with these bytes may hold NUL bytes: UTF-16 or
// UTF-32 by its mark or by the preferred encoding.
bool mayHoldNulBytes(const QByteArray &start, quint64 preferred);

// The encodings to try, in order, for a file's bytes: the one its mark names,
// the preferred one, UTF-8, and Latin-1 (which takes any bytes) unless NUL
// bytes show binary content.
QList<quint64> readingOrder(const QByteArray &bytes, quint64 preferred);

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
