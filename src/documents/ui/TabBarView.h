#pragma once

#include "documents/LWDocument.h"
#include "documents/ui/TabBarPalette.h"
#include "documents/ui/TabCell.h"

#include <QFont>
#include <QWidget>

#include <memory>
#include <vector>

class QMenu;

// The strip of document tabs above the editor. Tabs share the bar's width
// (between 100 and 180 pixels each); those that do not fit are reached
// through the tab list at the bar's left end, and choosing one there brings
// it to the front. A press on a tab activates it, a press on its cross or a
// middle-click asks for it to be closed, and dragging a tab moves it along
// the bar. Exactly one tab is active while any tab exists.
class TabBarView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barHeight = 32;
    static constexpr int tabHeight = 28;
    static constexpr int listControlWidth = 24;

    explicit TabBarView(QWidget *parent = nullptr);
    ~TabBarView() override;

    // A tab linked to the node, appended and made active without the
    // activation signal; a tab that would lie outside the bar takes the
    // first place instead, so that it is seen.
    TabCell *addTabWithDocument(const LWDocument::Ptr &document);
    // Makes the node's tab active without the activation signal, since the
    // editor is already moving to it; false when the node has no tab.
    bool selectTabForDocument(const LWDocument::Ptr &document);
    // Removes the tab; the tab before it (the first when it was first)
    // becomes active with the activation signal.
    void removeTabCell(TabCell *tab);
    void exchangeTabWithIndex(int first, int second);
    // Drops the tabs whose documents are gone and redraws, so titles and
    // unsaved marks follow their documents.
    void refresh();

    void setAsActiveTab(TabCell *tab);
    void setAsActiveTabNoNotify(TabCell *tab);

    int count() const { return static_cast<int>(tabs.size()); }
    TabCell *tabAt(int index) const;
    int indexOf(const TabCell *tab) const;
    TabCell *tabForDocument(const LWDocument::Ptr &document) const;
    TabCell *selectedTab() const { return selected; }
    // The documents of the tabs in tab order, and the active tab's.
    QList<LWDocument::Ptr> openDocuments() const;
    LWDocument::Ptr selectedDocument() const;

    QRect tabRectFromIndex(int index) const;
    bool isInsideBar(int index) const;
    // Some tab lies beyond the bar's right end; the tab list is then shown.
    bool hasHiddenTabs() const;
    QRect listControlRect() const;
    // The tab list, rebuilt with one item per tab in tab order; choosing an
    // item calls popupMenuDidChoosed with its index.
    QMenu *tabsMenu();
    void popupMenuDidChoosed(int index);

    void setColors(const TabBarPalette &palette);
    const TabBarPalette &colors() const { return tabColors; }

signals:
    void tabDidActived(TabCell *tab);
    // The user asked to close the tab; the owner decides and calls removeTabCell.
    void tabCloseRequested(TabCell *tab);
    // A tab was added or removed.
    void tabsChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void redraw();
    void layoutTabs();
    void activate(TabCell *tab, bool notify);
    void remove(TabCell *tab, bool notify);
    int tabWidth() const;
    TabCell *tabUnder(const QPoint &point) const;
    void drawListControl(QPainter &painter) const;
    void dragTo(const QPoint &point);

    std::vector<std::unique_ptr<TabCell>> tabs;
    TabCell *selected = nullptr;
    TabBarPalette tabColors;
    QFont tabFont;
    QMenu *popupMenu;
    int dragSourceIndex = -1;
    QPoint pressPosition;
    bool dragging = false;
};
