#include "documents/LWDocumentIcons.h"

#include <QPainter>

namespace LWDocumentIcons {

namespace {

constexpr qreal DimmedOpacity = 0.4;

QImage blankIcon()
{
    QImage image(Side, Side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage drawnFileIcon()
{
    QImage image = blankIcon();
    QPainter painter(&image);
    painter.setPen(QColor(110, 110, 110));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygon({{2, 0}, {9, 0}, {12, 3}, {12, 14}, {2, 14}}));
    painter.drawLine(9, 0, 9, 3);
    painter.drawLine(9, 3, 12, 3);
    return image;
}

QImage drawnFolderIcon()
{
    QImage image = blankIcon();
    QPainter painter(&image);
    painter.setPen(QColor(70, 120, 180));
    painter.setBrush(QColor(130, 180, 230));
    painter.drawPolygon(QPolygon({{0, 3}, {5, 3}, {7, 5}, {14, 5}, {14, 13}, {0, 13}}));
    return image;
}

QImage dimmedRendering(const QImage &icon)
{
    QImage dimmed = blankIcon();
    QPainter painter(&dimmed);
    painter.setOpacity(DimmedOpacity);
    painter.drawImage(0, 0, icon);
    return dimmed;
}

std::shared_ptr<const LWIconPair> makePair(const QImage &image)
{
    QImage icon = image.size() == QSize(Side, Side)
                      ? image
                      : image.scaled(Side, Side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return std::make_shared<const LWIconPair>(LWIconPair{icon, dimmedRendering(icon)});
}

const std::shared_ptr<const LWIconPair> &filePair()
{
    static const auto pair = makePair(drawnFileIcon());
    return pair;
}

const std::shared_ptr<const LWIconPair> &folderPair()
{
    static const auto pair = makePair(drawnFolderIcon());
    return pair;
}

}

QImage regularFile()
{
    return filePair()->icon;
}

QImage folder()
{
    return folderPair()->icon;
}

std::shared_ptr<const LWIconPair> pairFor(const QImage &image)
{
    if (image.cacheKey() == filePair()->icon.cacheKey())
        return filePair();
    if (image.cacheKey() == folderPair()->icon.cacheKey())
        return folderPair();
    return makePair(image);
}

}
