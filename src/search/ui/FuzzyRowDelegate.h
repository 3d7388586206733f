#pragma once

#include <QStyledItemDelegate>

class QTextDocument;

// Paints a fuzzy popup's row: its rich text (matched letters of class "hit"
// stand out, a "detail" line is dimmed), its note at the right, and the
// whole row dimmed when it cannot be chosen.
class FuzzyRowDelegate : public QStyledItemDelegate
{
public:
    static constexpr int EnabledRole = Qt::UserRole + 1;
    static constexpr int NoteRole = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    static void layOut(QTextDocument &text, const QStyleOptionViewItem &option, const QModelIndex &index,
                       bool selected);
};
