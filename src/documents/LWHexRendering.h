#pragma once

#include <QByteArray>
#include <QString>

// The read-only view of a file that is not text: its bytes as lower-case
// hexadecimal in groups of four bytes separated by one space, cut into lines
// of 72 characters (eight groups, each with its trailing space).
namespace LWHexRendering {

QString render(const QByteArray &bytes);

}
