#pragma once

#include <QByteArray>
#include <QString>

// Replaces a file's contents all at once: the bytes go to a temporary file
// beside it which then takes the file's place, so an interrupted save leaves
// either the old or the new contents, never a mix. An existing file's
// permissions are kept. Failures are logged and answered with false.
namespace LWSafeSave {

bool write(const QString &path, const QByteArray &bytes);

}
