#include "app/ui/WindowMenu.h"

#include "app/ui/LWWindowMenuController.h"
#include "extensions/ui/MenuValidation.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace WindowMenu {

namespace {

using Action = void (LWWindowMenuController::*)();

QMenu *windowMenu(QMenuBar *bar)
{
    for (QAction *item : bar->actions())
        if (item->menu() && item->text() == QLatin1String("Window"))
            return item->menu();
    return bar->addMenu(QStringLiteral("Window"));
}

void addItem(QMenu *menu, LWWindowMenuController &controller, const QString &title, const QString &action,
             const QList<QKeySequence> &shortcuts, Action run)
{
    QAction *item = menu->addAction(title);
    item->setObjectName(action);
    item->setShortcuts(shortcuts);
    QObject::connect(item, &QAction::triggered, menu, [&controller, run] { (controller.*run)(); });
}

void bindFileItem(QMenuBar *bar, const QString &action, LWWindowMenuController &controller, Action run)
{
    if (auto *item = bar->findChild<QAction *>(action))
        QObject::connect(item, &QAction::triggered, bar, [&controller, run] { (controller.*run)(); });
    else
        qWarning("The File menu has no %s item to bind", qPrintable(action));
}

}

void build(QMenuBar *bar, LWWindowMenuController &controller)
{
    QMenu *menu = windowMenu(bar);
    addItem(menu, controller, QStringLiteral("Next Tab"), QStringLiteral("nextTabAction"),
            {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_PageDown)},
            &LWWindowMenuController::nextTabAction);
    addItem(menu, controller, QStringLiteral("Previous Tab"), QStringLiteral("previousTabAction"),
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), QKeySequence(Qt::CTRL | Qt::Key_PageUp)},
            &LWWindowMenuController::previousTabAction);
    menu->addSeparator();
    addItem(menu, controller, QStringLiteral("Next Document"), QStringLiteral("nextDocumentAction"),
            {QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_PageDown)}, &LWWindowMenuController::nextDocumentAction);
    addItem(menu, controller, QStringLiteral("Previous Document"), QStringLiteral("previousDocumentAction"),
            {QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_PageUp)}, &LWWindowMenuController::previousDocumentAction);
    MenuValidation::install(menu, [&controller](QAction *item) {
        return item->objectName().isEmpty() || controller.validateMenuItem(item->objectName() + QLatin1Char(':'));
    });
    bindFileItem(bar, QStringLiteral("closeAction"), controller, &LWWindowMenuController::closeTabAction);
    bindFileItem(bar, QStringLiteral("closeAllAction"), controller, &LWWindowMenuController::closeAllAction);
}

}
