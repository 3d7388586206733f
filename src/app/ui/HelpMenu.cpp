#include "app/ui/HelpMenu.h"

#include "app/LWHelpMenuController.h"
#include "app/ui/AboutDialog.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace HelpMenu {

void build(QMenuBar *bar, LWHelpMenuController *controller, QWidget *window)
{
    QMenu *menu = bar->addMenu(QStringLiteral("Help"));
    QAction *help = menu->addAction(QStringLiteral("Documentation"), menu, [controller] { controller->showHelp(); });
    help->setObjectName(QStringLiteral("showHelp"));
    help->setShortcuts(QKeySequence::HelpContents);
    menu->addAction(QStringLiteral("Support"), menu, [controller] { controller->showSupport(); })
        ->setObjectName(QStringLiteral("showSupport"));
    menu->addSeparator();
    menu->addAction(QStringLiteral("About Larkwood"), menu, [window] { AboutDialog::show(window); })
        ->setObjectName(QStringLiteral("aboutAction"));
}

}
