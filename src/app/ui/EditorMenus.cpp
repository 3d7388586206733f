#include "app/ui/EditorMenus.h"

#include "app/ui/GroupedMenu.h"

#include "editor/LWDocumentMenuController.h"
#include "editor/LWEditMenuController.h"
#include "editor/LWFindMenuController.h"
#include "editor/LWViewMenuController.h"
#include "extensions/LWBundle.h"
#include "extensions/LWEnvironment.h"
#include "extensions/ui/MenuValidation.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace EditorMenus {

namespace {

using Key = QKeySequence;

struct Item
{
    const char *title; // "--" is a separator
    const char *action;
    QList<QKeySequence> shortcuts;
    bool checkable;
};

// Keys written as text, several separated by "; ".
QList<QKeySequence> keys(const char *text)
{
    return QKeySequence::listFromString(QString::fromLatin1(text));
}

QAction *addItem(QMenu *menu, QObject *controller, const QString &title, const QString &action,
                 const QList<QKeySequence> &shortcuts, bool checkable, const QVariant &object = {})
{
    QAction *item = menu->addAction(title);
    item->setObjectName(action);
    item->setShortcuts(shortcuts);
    item->setCheckable(checkable);
    item->setData(object);
    QObject::connect(item, &QAction::triggered, controller, [controller, item] {
        if (!QMetaObject::invokeMethod(controller, item->objectName().toLatin1().constData(), Q_ARG(QAction *, item)))
            qWarning("No menu action %s on %s", qPrintable(item->objectName()),
                     controller->metaObject()->className());
    });
    return item;
}

void addItems(QMenu *menu, QObject *controller, std::initializer_list<Item> items)
{
    for (const Item &item : items) {
        if (qstrcmp(item.title, "--") == 0)
            menu->addSeparator();
        else
            addItem(menu, controller, QString::fromUtf8(item.title), QString::fromLatin1(item.action),
                    item.shortcuts, item.checkable);
    }
}

// The item for a bundle description ("title", "object") of the registry.
GroupedMenu::AddItem bundleItem(QObject *controller, const QString &action)
{
    return [controller, action](QMenu *menu, const QVariantMap &description) {
        addItem(menu, controller, description.value(QStringLiteral("title")).toString(), action, {}, true,
                description.value(QStringLiteral("object")));
    };
}

QString lightOrDark(const QVariantMap &description)
{
    const auto *theme = qobject_cast<LWBundle *>(description.value(QStringLiteral("object")).value<QObject *>());
    const QVariant dark = theme ? theme->info().value(QStringLiteral("dark")) : QVariant();
    return dark.toBool() || dark.toInt() != 0 ? QStringLiteral("Dark") : QStringLiteral("Light");
}

template <typename Controller>
void validate(QMenu *menu, Controller *controller)
{
    MenuValidation::install(menu, [controller](QAction *item) { return controller->validateMenuItem(item); });
}

void buildEdit(QMenu *menu, LWEditMenuController *controller)
{
    addItems(menu, controller,
             {{"Select Word", "selectWordAction", keys("Ctrl+Alt+W"), false},
              {"Select Line", "selectLineAction", keys("Ctrl+L"), false},
              {"Select to Line Start", "selectLineToBeginningAction", keys("Shift+Home"), false},
              {"Select to Line End", "selectLineToEndAction", keys("Shift+End"), false},
              {"Select to File Start", "selectFileToBeginningAction", keys("Ctrl+Shift+Home"), false},
              {"Select to File End", "selectFileToEndAction", keys("Ctrl+Shift+End"), false},
              {"Deselect All", "deselectAllAction", {}, false},
              {"--", "", {}, false},
              {"Indent", "indentAction", keys("Ctrl+]"), false},
              {"Outdent", "outdentAction", keys("Ctrl+["), false},
              {"Move Line Up", "moveUpAction", keys("Alt+Up"), false},
              {"Move Line Down", "modeDownAction", keys("Alt+Down"), false},
              {"Comment / Uncomment", "commentUncommentAction", keys("Ctrl+/"), false}});
}

void buildDocument(QMenu *menu, LWDocumentMenuController *controller, const LWEnvironment *environment)
{
    menu->addSection(QStringLiteral("Navigate"))->setObjectName(QStringLiteral("documentNavigateMI"));
    addItems(menu, controller,
             {{"Go to Line...", "goToLineAction", keys("Ctrl+G"), false},
              {"Scroll Page Up", "scrollPageUpAction", keys("Alt+PgUp"), false},
              {"Scroll Page Down", "scrollPageDownAction", keys("Alt+PgDown"), false},
              {"Scroll to Selection", "scrollToSelectionAction", keys("Ctrl+Alt+J"), false}});
    addItems(menu->addMenu(QStringLiteral("Bookmarks")), controller,
             {{"Mark Current Line", "bookmarkMarkCurrentAction", keys("Ctrl+F2"), false},
              {"Unmark Current Line", "bookmarkUnmarkCurrentAction", keys("Ctrl+Shift+F2"), false},
              {"Remove All Bookmarks", "bookmarkRemoveAllAction", {}, false}});
    addItems(menu->addMenu(QStringLiteral("Folding")), controller,
             {{"Fold All", "foldingFoldAllAction", keys("Ctrl+Alt+0"), false},
              {"Unfold All", "foldingUnfoldAllAction", keys("Ctrl+Alt+Shift+0"), false},
              {"Fold Current", "foldingFoldCurrentAction", keys("Ctrl+Alt+["), false},
              {"Unfold Current", "foldingUnfoldCurrentAction", keys("Ctrl+Alt+]"), false}});
    menu->addSection(QStringLiteral("Actions"))->setObjectName(QStringLiteral("documentActionsMI"));
    QMenu *languages = menu->addMenu(QStringLiteral("Language"));
    languages->setObjectName(QStringLiteral("specsMenu"));
    addItem(languages, controller, QStringLiteral("Override default for current extension"),
            QStringLiteral("setDefaultForCurrentExtension"), {}, true);
    languages->addSeparator();
    if (environment)
        GroupedMenu::addByLetter(languages,
                                 environment->menuArrayFor(QStringLiteral("specs"), QStringLiteral("setSpecAction:")),
                                 bundleItem(controller, QStringLiteral("setSpecAction")));
}

void buildView(QMenu *menu, LWViewMenuController *controller, const LWEnvironment *environment)
{
    menu->addSection(QStringLiteral("Layout"))->setObjectName(QStringLiteral("viewLayoutMI"));
    addItems(menu, controller,
             {{"Sidebar", "toggleSidebarAction", keys("Ctrl+B"), true},
              {"Tab Bar", "toggleTabsAction", {}, true},
              {"Status Bar", "toggleStatusBarAction", {}, true},
              {"Utility Pane", "toggleUtilityViewAction", keys("Ctrl+Shift+U"), true}});
    menu->addSection(QStringLiteral("Editor"))->setObjectName(QStringLiteral("viewEditorMI"));
    addItems(menu, controller,
             {{"Editor Panel", "togglePanelAction", {}, true},
              {"Terminal Focus", "toggleTerminalFocusAction", keys("Ctrl+`"), false},
              {"Line Numbers", "toggleGutterAction", {}, true},
              {"Print Margin", "togglePrintMarginAction", {}, true},
              {"Indentation Guides", "toggleIndentationGuidesAction", {}, true},
              {"Invisible Characters", "toggleInvisiblesAction", {}, true},
              {"Soft Tabs", "useSoftTabsToggle", {}, true},
              {"Word Wrap", "useWordWrapToggle", keys("Alt+Z"), true}});
    addItems(menu->addMenu(QStringLiteral("Tab Size")), controller,
             {{"2", "tabSize2Switch", {}, true},
              {"4", "tabSize4Switch", {}, true},
              {"8", "tabSize8Switch", {}, true},
              {"12", "tabSize12Switch", {}, true}});
    addItems(menu->addMenu(QStringLiteral("Wrap Limit")), controller,
             {{"Automatic", "wrapLimitsAutomaticSwitch", {}, true},
              {"40", "wrapLimits40Switch", {}, true},
              {"80", "wrapLimits80Switch", {}, true},
              {"120", "wrapLimits120Switch", {}, true}});
    menu->addSeparator();
    addItems(menu, controller,
             {{"Zoom In", "fontZoomInAction", Key::keyBindings(Key::ZoomIn) << Key(QStringLiteral("Ctrl+=")), false},
              {"Zoom Out", "fontZoomOutAction", Key::keyBindings(Key::ZoomOut), false}});
    QMenu *themes = menu->addMenu(QStringLiteral("Themes"));
    themes->setObjectName(QStringLiteral("themesMenu"));
    fillThemes(themes, controller, environment);
}

// Find Next and Previous take F3, leaving Ctrl+G to Go to Line; Ctrl+Shift+F
// stays free for finding in files.
void buildFind(QMenu *menu, LWFindMenuController *controller)
{
    addItems(menu, controller,
             {{"Find...", "findAction", Key::keyBindings(Key::Find), false},
              {"Find Next", "findNextAction", keys("F3"), false},
              {"Find Previous", "findPreviousAction", keys("Shift+F3"), false},
              {"Replace", "replaceAction", keys("Ctrl+H"), false},
              {"Replace All", "replaceAllAction", keys("Ctrl+Shift+H"), false},
              {"Use Selection for Find", "useSelectionForFindAction", keys("Ctrl+E"), false},
              {"--", "", {}, false},
              {"Regular Expressions", "useRegularExpressionsToggle", {}, true},
              {"Case Sensitive", "caseSensitiveToggle", {}, true},
              {"Whole Words", "matchWholeWordToggle", {}, true},
              {"--", "", {}, false},
              {"In Document", "documentScopeSwitch", {}, true},
              {"In Selection", "selectionScopeSwitch", {}, true}});
}

}

void build(QMenuBar *bar, const Controllers &controllers, const LWEnvironment *environment)
{
    QMenu *edit = bar->addMenu(QStringLiteral("Edit"));
    edit->setObjectName(QStringLiteral("editMenu"));
    buildEdit(edit, controllers.edit);
    validate(edit, controllers.edit);
    QMenu *find = bar->addMenu(QStringLiteral("Find"));
    buildFind(find, controllers.find);
    validate(find, controllers.find);
    QMenu *view = bar->addMenu(QStringLiteral("View"));
    buildView(view, controllers.view, environment);
    validate(view, controllers.view);
    QMenu *document = bar->addMenu(QStringLiteral("Document"));
    buildDocument(document, controllers.document, environment);
    validate(document, controllers.document);
}

void fillThemes(QMenu *themes, LWViewMenuController *controller, const LWEnvironment *environment)
{
    themes->clear();
    if (environment)
        GroupedMenu::addByGroup(themes,
                                environment->menuArrayFor(QStringLiteral("themes"), QStringLiteral("setThemeAction:")),
                                {QStringLiteral("Light"), QStringLiteral("Dark")}, lightOrDark,
                                bundleItem(controller, QStringLiteral("setThemeAction")));
}

}
