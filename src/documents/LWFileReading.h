#pragma once

#include <QByteArray>
#include <QString>

// Reads a document's file within bounds: text is read whole, binary content
// (NUL bytes near the start where the encoding has none) only as far as its
// hexadecimal view shows, so a huge binary or sparse file never fills the
// memory.
namespace LWFileReading {

// Files larger than this are read only after the user agrees.
constexpr qint64 LargeFileLimit = 64 * 1024 * 1024;
// The part of binary content shown as hexadecimal.
constexpr qint64 BinaryPreviewLimit = 1024 * 1024;

struct Result
{
    QByteArray bytes;
    bool ok = false;
    bool binary = false;
    // Only the first part of the file was read.
    bool truncated = false;
};

// preferred: the encoding the text is expected in.
Result read(const QString &path, quint64 preferred);

// "12.5 MB" and the like, for messages.
QString sizeText(qint64 bytes);

}
