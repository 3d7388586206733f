#include "search/ui/FuzzyRowDelegate.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>

namespace {

const QString AccentColour = QStringLiteral("#c2410c");

}

void FuzzyRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &background, painter);

    painter->save();
    if (!index.data(EnabledRole).toBool())
        painter->setOpacity(0.45);
    const QRect area = option.rect.adjusted(8, 2, -8, -2);
    const QString note = index.data(NoteRole).toString();
    const int noteWidth = note.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(note) + 16;
    if (!note.isEmpty()) {
        painter->setPen(option.palette.color(QPalette::PlaceholderText));
        painter->drawText(area, Qt::AlignRight | Qt::AlignVCenter, note);
    }
    const bool selected = option.state & QStyle::State_Selected;
    QTextDocument text;
    layOut(text, option, index, selected);
    text.setTextWidth(area.width() - noteWidth);
    painter->translate(area.left(), area.top() + (area.height() - text.size().height()) / 2);
    painter->setClipRect(QRect(0, 0, area.width() - noteWidth, area.height()));
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = option.palette;
    if (selected)
        context.palette.setColor(QPalette::Text, option.palette.color(QPalette::HighlightedText));
    text.documentLayout()->draw(painter, context);
    painter->restore();
}

QSize FuzzyRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QTextDocument text;
    layOut(text, option, index, false);
    return {option.rect.width(), static_cast<int>(text.size().height()) + 8};
}

// Matched letters stand out in an accent colour, or underlined in the
// selection's text colour on a selected row.
void FuzzyRowDelegate::layOut(QTextDocument &text, const QStyleOptionViewItem &option, const QModelIndex &index,
                              bool selected)
{
    const QPalette &palette = option.palette;
    const QString selectedText = palette.color(QPalette::HighlightedText).name();
    const QString letters = selected ? selectedText : AccentColour;
    const QString dimmed = selected ? selectedText : palette.color(QPalette::PlaceholderText).name();
    text.setDefaultStyleSheet(QStringLiteral(".hit { color: %1; font-weight: bold; %2 } .detail { color: %3; }")
                                  .arg(letters, selected ? QStringLiteral("text-decoration: underline;") : QString(),
                                       dimmed));
    text.setDefaultFont(option.font);
    text.setDocumentMargin(0);
    text.setHtml(index.data(Qt::DisplayRole).toString());
}
