#include "documents/ui/TabCell.h"

#include "documents/ui/TabBarPalette.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int titleMargin = 8;
constexpr int closeButtonSize = 14;
constexpr int closeCrossInset = 4;
constexpr int unsavedMarkSize = 7;
constexpr qreal cornerRadius = 4;

// The tab's outline: rounded at the top, open at the bottom where it meets the editor.
QPainterPath outline(const QRectF &frame)
{
    QPainterPath path;
    path.moveTo(frame.bottomLeft());
    path.lineTo(frame.left(), frame.top() + cornerRadius);
    path.quadTo(frame.topLeft(), QPointF(frame.left() + cornerRadius, frame.top()));
    path.lineTo(frame.right() - cornerRadius, frame.top());
    path.quadTo(frame.topRight(), QPointF(frame.right(), frame.top() + cornerRadius));
    path.lineTo(frame.bottomRight());
    return path;
}

}

TabCell::TabCell(const LWDocument::Ptr &document) : document(document) {}

QString TabCell::title() const
{
    const LWDocument::Ptr node = linkedDocument();
    return node ? node->label() : QString();
}

QString TabCell::toolTip() const
{
    const LWDocument::Ptr node = linkedDocument();
    return node && !node->isUntitled() ? node->fullPath() : title();
}

bool TabCell::isUnsaved() const
{
    const LWDocument::Ptr node = linkedDocument();
    return node && !node->saved();
}

QRect TabCell::closeButtonRect() const
{
    return QRect(tabFrame.right() - closeButtonSize - 5, tabFrame.center().y() - closeButtonSize / 2 + 1,
                 closeButtonSize, closeButtonSize);
}

// Inactive tabs are drawn in the tab colour with a full outline; the active
// one in the active colour, its open bottom merging into the bar's edge line.
void TabCell::draw(QPainter &painter, const TabBarPalette &colors, const QFont &font) const
{
    const QRectF shape = QRectF(tabFrame).adjusted(0.5, 0.5, -0.5, 0.5);
    const QPainterPath path = outline(shape);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillPath(path, actived ? colors.tabActivedBGColor : colors.tabBGColor);
    painter.setPen(QPen(colors.tabBorderColor, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);

    QRect titleRect = tabFrame.adjusted(titleMargin, 0, -(closeButtonSize + 6), 0);
    if (isUnsaved()) {
        const QRectF mark(titleRect.left(), titleRect.center().y() - unsavedMarkSize / 2.0 + 1, unsavedMarkSize,
                          unsavedMarkSize);
        painter.setPen(Qt::NoPen);
        painter.setBrush(actived ? colors.tabActivedTitleColor : colors.tabTitleColor);
        painter.drawEllipse(mark);
        titleRect.setLeft(titleRect.left() + unsavedMarkSize + 5);
    }
    painter.setFont(font);
    painter.setPen(actived ? colors.tabActivedTitleColor : colors.tabTitleColor);
    const QString shown = QFontMetrics(font).elidedText(title(), Qt::ElideMiddle, titleRect.width());
    painter.drawText(titleRect, Qt::AlignVCenter | Qt::AlignLeft, shown);
    drawCloseButton(painter, colors);
}

void TabCell::drawCloseButton(QPainter &painter, const TabBarPalette &colors) const
{
    const QRectF cross = QRectF(closeButtonRect()).adjusted(closeCrossInset, closeCrossInset, -closeCrossInset,
                                                            -closeCrossInset);
    painter.setPen(QPen(colors.smallControlColor, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
}
