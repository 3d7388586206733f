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
    QList<QKeySequence> shortcuts;
    Action run;
};

QAction *addItem(QMenu *menu, const QString &title, const QString &action, const QList<QKeySequence> &shortcuts)
{
    QAction *item = menu->addAction(title);
    item->setObjectName(action);
    item->setShortcuts(shortcuts);
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
                                 item.shortcuts);
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
            QAction *item = addItem(submenu, title, QStringLiteral("newFromTemplateAction"), {});
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
        QAction *item = addItem(recents, path, QStringLiteral("openRecentItem"), {});
        QObject::connect(item, &QAction::triggered, recents, [controller, path] { controller().openRecent(path); });
    }
    recents->addSeparator();
    QAction *clear = addItem(recents, QStringLiteral("Clear Menu"), QStringLiteral("clearRecentsAction"), {});
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
    using Key = QKeySequence;
    using File = LWFileMenuController;
    QMenu *menu = bar->addMenu(QStringLiteral("File"));
    addItems(menu, controller, {{"New", "newAction", Key::keyBindings(Key::New), &File::newAction}});
    QMenu *templates = menu->addMenu(QStringLiteral("New from Template"));
    templates->setObjectName(QStringLiteral("templatesMenu"));
    if (environment)
        fillTemplates(templates, controller, environment);
    addItems(menu, controller,
             {{"Open...", "openAction", Key::keyBindings(Key::Open), &File::openAction},
              {"Open Folder...", "openFolderAction", {Key(QStringLiteral("Ctrl+Shift+O"))}, &File::openFolderAction}});
    QMenu *recents = menu->addMenu(QStringLiteral("Open Recent"));
    recents->setObjectName(QStringLiteral("recentsMenu"));
    QObject::connect(recents, &QMenu::aboutToShow, recents, [recents, controller] { fillRecents(recents, controller); });
    // Print leaves Ctrl+P to quick open.
    addItems(menu, controller,
             {{"Open in New Tab", "openInNewTab", {}, &File::openInNewTab},
              {"--", "", {}, nullptr},
              {"Save", "saveAction", Key::keyBindings(Key::Save), &File::saveAction},
              {"Save As...", "saveAsAction", {Key(QStringLiteral("Ctrl+Shift+S"))}, &File::saveAsAction},
              {"Save All", "saveAllAction", {Key(QStringLiteral("Ctrl+Alt+S"))}, &File::saveAllAction},
              {"--", "", {}, nullptr},
              {"Close Tab", "closeAction", {Key(QStringLiteral("Ctrl+W"))}, &File::closeAction},
              {"Close All", "closeAllAction", {Key(QStringLiteral("Ctrl+Shift+W"))}, &File::closeAllAction},
              {"--", "", {}, nullptr},
              {"Print...", "printAction", {Key(QStringLiteral("Ctrl+Alt+P"))}, &File::printAction},
              {"--", "", {}, nullptr}});
    QAction *quitItem =
        addItem(menu, QStringLiteral("Quit"), QStringLiteral("quitAction"), {Key(QStringLiteral("Ctrl+Q"))});
    QObject::connect(quitItem, &QAction::triggered, menu, quit);
    validate(menu, controller);
}

}
