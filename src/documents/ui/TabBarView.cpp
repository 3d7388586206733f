#include "documents/ui/TabBarView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int rightMargin = 12;
constexpr int minimumTabWidth = 100;
constexpr int maximumTabWidth = 180;

}

TabBarView::TabBarView(QWidget *parent) : QWidget(parent), popupMenu(new QMenu(QStringLiteral("Contextual Menu"), this))
{
    setFixedHeight(barHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // At the desktop's interface size, so that titles of the narrowest tabs still show.
    tabFont = font();
    tabFont.setFamilies({QStringLiteral("Lucida Grande"), font().family()});
}

TabBarView::~TabBarView() = default;

TabCell *TabBarView::addTabWithDocument(const LWDocument::Ptr &document)
{
    if (!document) {
        qWarning("addTabWithDocument: no document to give a tab");
        return nullptr;
    }
    tabs.push_back(std::make_unique<TabCell>(document));
    TabCell *tab = tabs.back().get();
    if (!isInsideBar(count() - 1))
        exchangeTabWithIndex(count() - 1, 0);
    setAsActiveTabNoNotify(tab);
    redraw();
    emit tabsChanged();
    return tab;
}

bool TabBarView::selectTabForDocument(const LWDocument::Ptr &document)
{
    TabCell *tab = tabForDocument(document);
    if (!tab)
        return false;
    setAsActiveTabNoNotify(tab);
    return true;
}

void TabBarView::removeTabCell(TabCell *tab)
{
    remove(tab, true);
}

void TabBarView::remove(TabCell *tab, bool notify)
{
    const int index = indexOf(tab);
    if (index < 0)
        return;
    if (selected == tab)
        selected = nullptr;
    tabs.erase(tabs.begin() + index);
    if (!tabs.empty())
        activate(tabAt(std::max(index - 1, 0)), notify);
    redraw();
    emit tabsChanged();
}

void TabBarView::exchangeTabWithIndex(int first, int second)
{
    if (!tabAt(first) || !tabAt(second))
        return;
    std::swap(tabs[first], tabs[second]);
    redraw();
}

// A tab whose document is gone (removed from the workspace, or the
// placeholder shown while the workspace is imported) leaves the bar. The
// editor's document is never gone, so no switch is asked for: this runs
// while the page may be waiting for the shell.
void TabBarView::refresh()
{
    for (int index = count() - 1; index >= 0; --index)
        if (tabAt(index)->hasLostDocument())
            remove(tabAt(index), false);
    redraw();
}

QList<LWDocument::Ptr> TabBarView::openDocuments() const
{
    QList<LWDocument::Ptr> documents;
    for (const auto &tab : tabs)
        if (const LWDocument::Ptr document = tab->linkedDocument())
            documents << document;
    return documents;
}

LWDocument::Ptr TabBarView::selectedDocument() const
{
    return selected ? selected->linkedDocument() : nullptr;
}

void TabBarView::setAsActiveTab(TabCell *tab)
{
    activate(tab, true);
}

void TabBarView::setAsActiveTabNoNotify(TabCell *tab)
{
    activate(tab, false);
}

void TabBarView::activate(TabCell *tab, bool notify)
{
    if (!tab || tab == selected)
        return;
    for (const auto &each : tabs)
        each->setActived(false);
    tab->setActived(true);
    selected = tab;
    update();
    if (notify)
        emit tabDidActived(tab);
}

TabCell *TabBarView::tabAt(int index) const
{
    return index >= 0 && index < count() ? tabs[index].get() : nullptr;
}

int TabBarView::indexOf(const TabCell *tab) const
{
    const auto found = std::find_if(tabs.begin(), tabs.end(), [tab](const auto &each) { return each.get() == tab; });
    return found == tabs.end() ? -1 : static_cast<int>(found - tabs.begin());
}

TabCell *TabBarView::tabForDocument(const LWDocument::Ptr &document) const
{
    const auto found = std::find_if(tabs.begin(), tabs.end(),
                                    [&document](const auto &each) { return each->isLinkedTo(document); });
    return found == tabs.end() ? nullptr : found->get();
}

// MARK: layout

int TabBarView::tabWidth() const
{
    const int available = std::max(width() - listControlWidth - rightMargin, 0);
    return std::clamp(available / std::max(count(), 1), minimumTabWidth, maximumTabWidth);
}

QRect TabBarView::tabRectFromIndex(int index) const
{
    const int width = tabWidth();
    return QRect(index * width + listControlWidth, barHeight - tabHeight, width, tabHeight);
}

bool TabBarView::isInsideBar(int index) const
{
    return rect().contains(tabRectFromIndex(index));
}

bool TabBarView::hasHiddenTabs() const
{
    return count() > 0 && !isInsideBar(count() - 1);
}

QRect TabBarView::listControlRect() const
{
    return QRect(0, barHeight - tabHeight, listControlWidth, tabHeight);
}

void TabBarView::layoutTabs()
{
    for (int index = 0; index < count(); ++index)
        tabs[index]->setFrame(tabRectFromIndex(index));
}

void TabBarView::redraw()
{
    layoutTabs();
    update();
}

void TabBarView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layoutTabs();
}

TabCell *TabBarView::tabUnder(const QPoint &point) const
{
    const auto found = std::find_if(tabs.begin(), tabs.end(), [&point](const auto &each) {
        return each->contains(point);
    });
    return found == tabs.end() ? nullptr : found->get();
}

// MARK: the tab list

QMenu *TabBarView::tabsMenu()
{
    popupMenu->clear();
    for (int index = 0; index < count(); ++index) {
        QAction *item = popupMenu->addAction(tabAt(index)->title());
        item->setCheckable(true);
        item->setChecked(tabAt(index) == selected);
        connect(item, &QAction::triggered, this, [this, index] { popupMenuDidChoosed(index); });
    }
    return popupMenu;
}

void TabBarView::popupMenuDidChoosed(int index)
{
    TabCell *tab = tabAt(index);
    if (!tab)
        return;
    if (!isInsideBar(index))
        exchangeTabWithIndex(index, 0);
    setAsActiveTab(tab);
}

// MARK: drawing

void TabBarView::setColors(const TabBarPalette &palette)
{
    tabColors = palette;
    update();
}

void TabBarView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), tabColors.bgColor);
    painter.fillRect(QRect(0, height() - 1, width(), 1), tabColors.tabActivedBGColor);
    if (hasHiddenTabs())
        drawListControl(painter);
    for (const auto &tab : tabs)
        if (tab.get() != selected)
            tab->draw(painter, tabColors, tabFont);
    if (selected)
        selected->draw(painter, tabColors, tabFont);
}

// A downward arrow in the control's rectangle.
void TabBarView::drawListControl(QPainter &painter) const
{
    const QRectF arrow = QRectF(listControlRect()).adjusted(6, 10, -6, -10);
    QPolygonF triangle;
    triangle << arrow.topLeft() << arrow.topRight() << QPointF(arrow.center().x(), arrow.bottom());
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tabColors.smallControlColor);
    painter.drawPolygon(triangle);
}

bool TabBarView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    auto *help = static_cast<QHelpEvent *>(event);
    if (const TabCell *tab = tabUnder(help->pos()))
        QToolTip::showText(help->globalPos(), tab->toolTip(), this, tab->frame());
    else
        QToolTip::hideText();
    return true;
}

// MARK: mouse

void TabBarView::mousePressEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::LeftButton && hasHiddenTabs() && listControlRect().contains(point)) {
        tabsMenu()->popup(mapToGlobal(listControlRect().bottomLeft()));
        return;
    }
    TabCell *tab = tabUnder(point);
    if (!tab)
        return;
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && tab->closeButtonRect().contains(point))) {
        emit tabCloseRequested(tab);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    dragSourceIndex = indexOf(tab);
    pressPosition = point;
    setAsActiveTab(tab);
}

void TabBarView::mouseMoveEvent(QMouseEvent *event)
{
    if (dragSourceIndex < 0 || !(event->buttons() & Qt::LeftButton))
        return;
    const QPoint point = event->position().toPoint();
    if (!dragging && (point - pressPosition).manhattanLength() < QApplication::startDragDistance())
        return;
    dragging = true;
    dragTo(point);
}

void TabBarView::mouseReleaseEvent(QMouseEvent *)
{
    dragSourceIndex = -1;
    dragging = false;
}

// The dragged tab takes the place of the tab under the pointer, so the
// others make way while it moves.
void TabBarView::dragTo(const QPoint &point)
{
    const int width = tabWidth();
    const int destination = std::clamp((point.x() - listControlWidth) / width, 0, count() - 1);
    if (destination == dragSourceIndex)
        return;
    auto moved = std::move(tabs[dragSourceIndex]);
    tabs.erase(tabs.begin() + dragSourceIndex);
    tabs.insert(tabs.begin() + destination, std::move(moved));
    dragSourceIndex = destination;
    redraw();
}
