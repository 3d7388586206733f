#pragma once

#include <QByteArray>
#include <QString>

// Replaces a file's contents all at once: the bytes go to a temporary file
// beside it which then takes the file's place, so an interrupted save leaves
// either the old or the new contents, never a mix. Every write, the flush and
// the sync to disk are checked, and only a complete file takes the old one's
// place: a full disk leaves the old file as it was. An existing file's
// permissions are kept. Failures are logged and answered with false, and
// with the reason in *reason when it is given.
namespace LWSafeSave {

bool write(const QString &path, const QByteArray &bytes, QString *reason = nullptr);

}
