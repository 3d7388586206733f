#include "remote/ui/TransfersMenu.h"

#include "remote/RemoteFolderTransfers.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace TransfersMenu {

void build(QMenuBar *bar, RemoteFolderTransfers *transfers)
{
    QAction *quit = bar->findChild<QAction *>(QStringLiteral("quitAction"));
    QMenu *fileMenu = quit ? qobject_cast<QMenu *>(quit->parent()) : nullptr;
    if (!fileMenu)
        return;
    auto *cancel = new QAction(QStringLiteral("Cancel Transfers"), fileMenu);
    cancel->setObjectName(QStringLiteral("cancelTransfersAction"));
    cancel->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+.")));
    QObject::connect(cancel, &QAction::triggered, fileMenu, [transfers] { transfers->cancelTransfers(); });
    fileMenu->insertAction(quit, cancel);
    fileMenu->insertSeparator(quit);
}

}
