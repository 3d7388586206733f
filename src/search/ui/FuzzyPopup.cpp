#include "search/ui/FuzzyPopup.h"

#include "search/ui/FuzzyRowDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace {

constexpr int RowsShown = 12;

}

FuzzyPopup::FuzzyPopup(QWidget *window, const QString &placeholder)
    : QFrame(window), queryField(new QLineEdit(this)), rowList(new QListWidget(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    queryField->setPlaceholderText(placeholder);
    queryField->setClearButtonEnabled(true);
    rowList->setItemDelegate(new FuzzyRowDelegate(rowList));
    rowList->setFocusPolicy(Qt::NoFocus);
    rowList->setUniformItemSizes(true);
    layout->addWidget(queryField);
    layout->addWidget(rowList);
    queryField->installEventFilter(this);
    connect(queryField, &QLineEdit::textEdited, this, &FuzzyPopup::queryChanged);
    connect(rowList, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { choose(rowList->row(item)); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focusMoved(now); });
    hide();
}

void FuzzyPopup::open()
{
    if (!isVisible())
        previousFocus = QApplication::focusWidget();
    queryField->clear();
    rowList->clear();
    placeInWindow();
    show();
    raise();
    queryField->setFocus();
}

void FuzzyPopup::setRows(const QVector<FuzzyPopupRow> &rows)
{
    rowList->clear();
    int firstEnabled = -1;
    for (const FuzzyPopupRow &row : rows) {
        auto *item = new QListWidgetItem(row.html, rowList);
        item->setData(FuzzyRowDelegate::EnabledRole, row.enabled);
        item->setData(FuzzyRowDelegate::NoteRole, row.note);
        if (row.enabled && firstEnabled < 0)
            firstEnabled = rowList->row(item);
    }
    rowList->setCurrentRow(firstEnabled);
}

void FuzzyPopup::setMessage(const QString &message)
{
    setRows({{QStringLiteral("<i>%1</i>").arg(message.toHtmlEscaped()), QString(), false}});
    rowList->setCurrentRow(-1);
}

QString FuzzyPopup::emphasized(const QString &text, const QVector<int> &positions, int offset)
{
    QString html;
    int next = 0;
    while (next < positions.size() && positions[next] < offset)
        ++next;
    for (int index = 0; index < text.size(); ++index) {
        const QString letter = QString(text.at(index)).toHtmlEscaped();
        if (next < positions.size() && positions[next] == index + offset) {
            html += QStringLiteral("<span class=\"hit\">%1</span>").arg(letter);
            ++next;
        } else {
            html += letter;
        }
    }
    return html;
}

bool FuzzyPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != queryField || event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Down:
        moveSelection(1);
        return true;
    case Qt::Key_Up:
        moveSelection(-1);
        return true;
    case Qt::Key_PageDown:
        moveSelection(RowsShown);
        return true;
    case Qt::Key_PageUp:
        moveSelection(-RowsShown);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(rowList->currentRow());
        return true;
    case Qt::Key_Escape:
        hide();
        if (previousFocus)
            previousFocus->setFocus();
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}

void FuzzyPopup::placeInWindow()
{
    const QWidget *window = parentWidget();
    const int width = std::clamp(window->width() * 3 / 5, std::min(420, window->width()), 800);
    const int rowHeight = fontMetrics().height() * 2;
    resize(width, queryField->sizeHint().height() + rowHeight * RowsShown);
    move((window->width() - width) / 2, window->height() / 12);
}

void FuzzyPopup::moveSelection(int steps)
{
    if (rowList->count() == 0)
        return;
    rowList->setCurrentRow(std::clamp(rowList->currentRow() + steps, 0, rowList->count() - 1));
}

void FuzzyPopup::choose(int row)
{
    const QListWidgetItem *item = rowList->item(row);
    if (!item || !item->data(FuzzyRowDelegate::EnabledRole).toBool())
        return;
    hide();
    emit chosen(row);
}

// A click elsewhere in the window closes the popup, as its keyboard has gone.
void FuzzyPopup::focusMoved(QWidget *now)
{
    if (isVisible() && now && now != queryField && !isAncestorOf(now))
        hide();
}
