#include "app/ui/FileMenu.h"

#include "documents/LWFileMenuController.h"
#include "documents/LWRecentDocuments.h"
#include "extensions/LWEnvironment.h"
#include "extensions/ui/MenuValidation.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace FileMenu {

namespace {

using Action = void (LWFileMenuController::*)();

struct Item
{
    const char *title; // "--" is a separator
    const char *action;
    const char *shortcut;
    Action run;
};

QAction *addItem(QMenu *menu, const QString &title, const QString &action, const QString &shortcut)
{
    QAction *item = menu->addAction(title);
    item->setObjectName(action);
    item->setShortcut(QKeySequence(shortcut));
    return item;
}

void addItems(QMenu *menu, const Controller &controller, std::initializer_list<Item> items)
{
    for (const Item &item : items) {
        if (qstrcmp(item.title, "--") == 0) {
            menu->addSeparator();
            continue;
        }
        QAction *added = addItem(menu, QString::fromUtf8(item.title), QString::fromLatin1(item.action),
                                 QString::fromLatin1(item.shortcut));
        const Action run = item.run;
        QObject::connect(added, &QAction::triggered, menu, [controller, run] { (controller().*run)(); });
    }
}

// One submenu per language; its items ("title", "object": the template
// record) make a new file from the template.
void fillTemplates(QMenu *templates, const Controller &controller, const LWEnvironment *environment)
{
    const QVariantMap languages =
        environment->templatesDictionaryWithSelector(QStringLiteral("newFromTemplateAction:"));
    for (auto language = languages.cbegin(); language != languages.cend(); ++language) {
        QMenu *submenu = templates->addMenu(language.key());
        for (const QVariant &description : language.value().toList()) {
            const QVariantMap entry = description.toMap();
            const QString title = entry.value(QStringLiteral("title")).toString();
            if (title == QLatin1String("--")) {
                submenu->addSeparator();
                continue;
            }
            const QVariantMap record = entry.value(QStringLiteral("object")).toMap();
            QAction *item = addItem(submenu, title, QStringLiteral("newFromTemplateAction"), QString());
            QObject::connect(item, &QAction::triggered, submenu,
                             [controller, record] { controller().newFromTemplateAction(record); });
        }
    }
    templates->setEnabled(!templates->isEmpty());
}

// The recent paths, newest first, then "Clear Menu"; rebuilt each time the
// submenu opens, so it always shows the stored list.
void fillRecents(QMenu *recents, const Controller &controller)
{
    recents->clear();
    for (const QString &path : LWRecentDocuments::paths()) {
        QAction *item = addItem(recents, path, QStringLiteral("openRecentItem"), QString());
        QObject::connect(item, &QAction::triggered, recents, [controller, path] { controller().openRecent(path); });
    }
    recents->addSeparator();
    QAction *clear = addItem(recents, QStringLiteral("Clear Menu"), QStringLiteral("clearRecentsAction"), QString());
    clear->setEnabled(!LWRecentDocuments::paths().isEmpty());
    QObject::connect(clear, &QAction::triggered, recents, [] { LWRecentDocuments::clear(); });
}

void validate(QMenu *menu, const Controller &controller)
{
    MenuValidation::install(menu, [controller](QAction *item) {
        return item->objectName().isEmpty()
            || controller().validateMenuItem(item->objectName() + QLatin1Char(':'));
    });
}

}

void build(QMenuBar *bar, const Controller &controller, const LWEnvironment *environment,
           const std::function<void()> &quit)
{
    QMenu *menu = bar->addMenu(QStringLiteral("File"));
    addItems(menu, controller, {{"New", "newAction", "Ctrl+N", &LWFileMenuController::newAction}});
    QMenu *templates = menu->addMenu(QStringLiteral("New from Template"));
    templates->setObjectName(QStringLiteral("templatesMenu"));
    if (environment)
        fillTemplates(templates, controller, environment);
    addItems(menu, controller,
             {{"Open...", "openAction", "Ctrl+O", &LWFileMenuController::openAction},
              {"Open Folder...", "openFolderAction", "Ctrl+Shift+O", &LWFileMenuController::openFolderAction}});
    QMenu *recents = menu->addMenu(QStringLiteral("Open Recent"));
    recents->setObjectName(QStringLiteral("recentsMenu"));
    QObject::connect(recents, &QMenu::aboutToShow, recents, [recents, controller] { fillRecents(recents, controller); });
    addItems(menu, controller,
             {{"Open in New Tab", "openInNewTab", "", &LWFileMenuController::openInNewTab},
              {"--", "", "", nullptr},
              {"Save", "saveAction", "Ctrl+S", &LWFileMenuController::saveAction},
              {"Save As...", "saveAsAction", "Ctrl+Shift+S", &LWFileMenuController::saveAsAction},
              {"--", "", "", nullptr},
              {"Close", "closeAction", "Ctrl+W", &LWFileMenuController::closeAction},
              {"Close All", "closeAllAction", "Ctrl+Shift+W", &LWFileMenuController::closeAllAction},
              {"--", "", "", nullptr},
              {"Print...", "printAction", "Ctrl+Alt+P", &LWFileMenuController::printAction},
              {"--", "", "", nullptr}});
    QAction *quitItem = addItem(menu, QStringLiteral("Quit"), QStringLiteral("quitAction"), QStringLiteral("Ctrl+Q"));
    QObject::connect(quitItem, &QAction::triggered, menu, quit);
    validate(menu, controller);
}

}
