#include "app/ui/ImagePreview.h"

#include <QPainter>

void ImagePreview::setImage(const QImage &shown)
{
    picture = shown;
    update();
}

void ImagePreview::paintEvent(QPaintEvent *)
{
    if (picture.isNull())
        return;
    QSize size = picture.size();
    if (size.width() > width() || size.height() > height())
        size.scale(this->size(), Qt::KeepAspectRatio);
    QRect target(QPoint(), size);
    target.moveCenter(rect().center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, picture);
}
