#pragma once

#include <QImage>
#include <QString>

// Image files shown in place of the editor: which files are images, and the
// picture for one. SVG files (extension exactly "svg") are rendered by the
// vector renderer at 900 x 900; everything else goes to the bitmap loader.
// A file that cannot be read gives an empty image.
namespace LWImagePreview {

bool isImage(const QString &path);
QImage load(const QString &path);

}
