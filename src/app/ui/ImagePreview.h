#pragma once

#include <QImage>
#include <QWidget>

// An image shown in the editor's place: centred at its own size, or scaled
// down (keeping its proportions) to fit. It never asks for room of its own,
// so a huge image never makes the window grow.
class ImagePreview : public QWidget
{
public:
    using QWidget::QWidget;

    void setImage(const QImage &shown);
    const QImage &image() const { return picture; }

    QSize sizeHint() const override { return {}; }
    QSize minimumSizeHint() const override { return {}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage picture;
};
