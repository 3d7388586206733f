#include "app/ui/WindowMenu.h"

#include "app/ui/DocumentTabs.h"
#include "app/ui/WorkspaceOutline.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace WindowMenu {

namespace {

void stepTab(DocumentTabs *tabs, int step)
{
    if (tabs->count() < 2)
        return;
    const int index = (tabs->currentIndex() + step + tabs->count()) % tabs->count();
    tabs->setCurrentIndex(index);
    emit tabs->tabBarClicked(index);
}

// The next row holding a file, down or up from the current one; the outline
// opens a file when its row becomes current.
void stepDocument(WorkspaceOutline *outline, int step)
{
    const auto advance = [outline, step](const QModelIndex &from) {
        return step > 0 ? outline->indexBelow(from) : outline->indexAbove(from);
    };
    const QModelIndex current = outline->currentIndex();
    for (QModelIndex row = current.isValid() ? advance(current) : outline->model()->index(0, 0); row.isValid();
         row = advance(row)) {
        if (!outline->model()->hasChildren(row) && row.parent().isValid()) {
            outline->setCurrentIndex(row);
            return;
        }
    }
}

QAction *addItem(QMenu *menu, const QString &title, const char *name, const char *keys)
{
    QAction *item = menu->addAction(title);
    item->setObjectName(QString::fromLatin1(name));
    item->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(keys)));
    return item;
}

}

void build(QMenuBar *bar, DocumentTabs *tabs, WorkspaceOutline *outline)
{
    QMenu *menu = bar->addMenu(QStringLiteral("Window"));
    QObject::connect(addItem(menu, QStringLiteral("Next Tab"), "nextTabAction", "Ctrl+Tab; Ctrl+PgDown"),
                     &QAction::triggered, tabs, [tabs] { stepTab(tabs, 1); });
    QObject::connect(addItem(menu, QStringLiteral("Previous Tab"), "previousTabAction",
                             "Ctrl+Shift+Backtab; Ctrl+PgUp"),
                     &QAction::triggered, tabs, [tabs] { stepTab(tabs, -1); });
    menu->addSeparator();
    QObject::connect(addItem(menu, QStringLiteral("Next Document"), "nextDocumentAction", "Ctrl+Alt+PgDown"),
                     &QAction::triggered, outline, [outline] { stepDocument(outline, 1); });
    QObject::connect(addItem(menu, QStringLiteral("Previous Document"), "previousDocumentAction", "Ctrl+Alt+PgUp"),
                     &QAction::triggered, outline, [outline] { stepDocument(outline, -1); });
}

}
