#pragma once

#include <QUrl>

// Which local files may be shown in a page that holds the native backend:
// the program's own pages and installed plugins, that is the "Data" tree of
// the resource folder and of the data root. Not trusted: "Data/Temp", where
// pages can write any text through getTempFile, and everything else in the
// home folder (which is the data root itself in a sandbox).
namespace TrustedPages {

bool isTrustedFile(const QUrl &url);

}
