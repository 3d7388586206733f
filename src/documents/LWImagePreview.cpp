#include "documents/LWImagePreview.h"

#include "documents/LWPathText.h"

#include <QMimeDatabase>
#include <QPainter>
#include <QSvgRenderer>
#include <QtDebug>

#include <algorithm>

namespace LWImagePreview {

namespace {

constexpr int SvgSide = 900;

bool isImageType(const QString &mimeName)
{
    return mimeName.startsWith(QLatin1String("image/"));
}

QImage renderSvg(const QString &path)
{
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return QImage();
    QImage image(SvgSide, SvgSide, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

}

bool isImage(const QString &path)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path);
    const QStringList ancestors = type.allAncestors();
    return isImageType(type.name()) || std::any_of(ancestors.cbegin(), ancestors.cend(), isImageType);
}

QImage load(const QString &path)
{
    QImage image = LWPathText::extension(path) == QLatin1String("svg") ? renderSvg(path) : QImage(path);
    if (image.isNull())
        qInfo().noquote() << QStringLiteral("Could not show the image %1").arg(path);
    return image;
}

}
