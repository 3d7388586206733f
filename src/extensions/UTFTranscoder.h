#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QSysInfo>

#include <optional>

// Re-encodes UTF-16 and UTF-32 text as UTF-8, refusing text that is not well
// formed: a trailing partial code unit, an unpaired surrogate, or a code point
// past U+10FFFF. The bytes given hold code units only (no byte-order mark).
class UTFTranscoder
{
public:
    static std::optional<QByteArray> utf8FromUTF16(QByteArrayView units, QSysInfo::Endian order);
    static std::optional<QByteArray> utf8FromUTF32(QByteArrayView units, QSysInfo::Endian order);
};
