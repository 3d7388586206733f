#include "search/ui/SearchCommands.h"

#include "documents/LWDocumentManager.h"
#include "search/WorkspaceFiles.h"
#include "search/ui/CommandPalette.h"
#include "search/ui/FindInFilesDialog.h"
#include "search/ui/QuickOpen.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

QMenu *menuTitled(QMenuBar *bar, const QString &title)
{
    for (QAction *top : bar->actions())
        if (top->menu() && top->menu()->title() == title)
            return top->menu();
    return bar->addMenu(title);
}

// A new item placed after the item with the object name, or at the end.
QAction *addItem(QMenu *menu, const QString &title, const QString &name, const QString &shortcut,
                 const QString &after = QString())
{
    auto *item = new QAction(title, menu);
    item->setObjectName(name);
    item->setShortcut(QKeySequence(shortcut));
    const QList<QAction *> items = menu->actions();
    QAction *anchor = nullptr;
    for (int index = 0; index + 1 < items.size(); ++index)
        if (!after.isEmpty() && items[index]->objectName() == after)
            anchor = items[index + 1];
    menu->insertAction(anchor, item);
    return item;
}

}

SearchCommands::SearchCommands(QMainWindow *window, WorkspaceOpener::Documents documents, ShellOutline *outline,
                               ShellPages *pages, QWidget *editorView)
    : opener(documents, outline, pages, editorView), documents(documents),
      fileFinder(new QuickOpen(window, [this] { return tree(); }, &opener)),
      palette(new CommandPalette(window->menuBar(), window)),
      findDialog(new FindInFilesDialog(window, [this] { return workspaceFiles(); }))
{
    QObject::connect(findDialog, &FindInFilesDialog::hitChosen, findDialog,
                     [this](const QString &path, int line) { opener.open(path, line); });
    addMenuItems(window);
}

SearchCommands::~SearchCommands() = default;

void SearchCommands::addMenuItems(QMainWindow *window)
{
    QMenuBar *bar = window->menuBar();
    QAction *quickOpen = addItem(menuTitled(bar, QStringLiteral("File")), QStringLiteral("Quick Open..."),
                                 QStringLiteral("quickOpenAction"), QStringLiteral("Ctrl+P"),
                                 QStringLiteral("openFolderAction"));
    QObject::connect(quickOpen, &QAction::triggered, fileFinder, &QuickOpen::show);

    QMenu *view = menuTitled(bar, QStringLiteral("View"));
    view->addSeparator();
    QAction *commands = addItem(view, QStringLiteral("Command Palette..."), QStringLiteral("commandPaletteAction"),
                                QStringLiteral("Ctrl+Shift+P"));
    QObject::connect(commands, &QAction::triggered, palette, &CommandPalette::show);

    QMenu *find = menuTitled(bar, QStringLiteral("Find"));
    find->addSeparator();
    QAction *inFiles = addItem(find, QStringLiteral("Find in Files..."), QStringLiteral("findInFilesAction"),
                               QStringLiteral("Ctrl+Shift+F"));
    QObject::connect(inFiles, &QAction::triggered, findDialog, &FindInFilesDialog::present);
}

const LWDocumentTree *SearchCommands::tree() const
{
    const LWDocumentManager *manager = documents();
    return manager ? &manager->documentTree() : nullptr;
}

WorkspaceFiles::List SearchCommands::workspaceFiles() const
{
    const LWDocumentTree *workspace = tree();
    return workspace ? WorkspaceFiles::collect(*workspace) : WorkspaceFiles::List();
}
