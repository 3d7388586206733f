#include "app/ui/EditorMenus.h"

#include "editor/LWDocumentMenuController.h"
#include "editor/LWEditMenuController.h"
#include "editor/LWFindMenuController.h"
#include "editor/LWViewMenuController.h"
#include "extensions/LWEnvironment.h"
#include "extensions/ui/MenuValidation.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace EditorMenus {

namespace {

struct Item
{
    const char *title; // "--" is a separator
    const char *action;
    const char *shortcut;
    bool checkable;
};

QAction *addItem(QMenu *menu, QObject *controller, const QString &title, const QString &action,
                 const QString &shortcut, bool checkable, const QVariant &object = {})
{
    QAction *item = menu->addAction(title);
    item->setObjectName(action);
    item->setShortcut(QKeySequence(shortcut));
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
                    QString::fromLatin1(item.shortcut), item.checkable);
    }
}

// One item per bundle description ("title", "object") of the registry.
void addBundleItems(QMenu *menu, QObject *controller, const QVariantList &descriptions, const QString &action)
{
    for (const QVariant &description : descriptions) {
        const QVariantMap entry = description.toMap();
        addItem(menu, controller, entry.value(QStringLiteral("title")).toString(), action, QString(), true,
                entry.value(QStringLiteral("object")));
    }
}

template <typename Controller>
void validate(QMenu *menu, Controller *controller)
{
    MenuValidation::install(menu, [controller](QAction *item) { return controller->validateMenuItem(item); });
}

void buildEdit(QMenu *menu, LWEditMenuController *controller)
{
    addItems(menu, controller,
             {{"Select Word", "selectWordAction", "Ctrl+Alt+W", false},
              {"Select Line", "selectLineAction", "Ctrl+Shift+L", false},
              {"Select to Line Start", "selectLineToBeginningAction", "Shift+Home", false},
              {"Select to Line End", "selectLineToEndAction", "Shift+End", false},
              {"Select to File Start", "selectFileToBeginningAction", "Ctrl+Shift+Home", false},
              {"Select to File End", "selectFileToEndAction", "Ctrl+Shift+End", false},
              {"Select All", "selectAllAction", "Ctrl+A", false},
              {"Deselect All", "deselectAllAction", "", false},
              {"--", "", "", false},
              {"Indent", "indentAction", "Ctrl+]", false},
              {"Outdent", "outdentAction", "Ctrl+[", false},
              {"Move Line Up", "moveUpAction", "Alt+Up", false},
              {"Move Line Down", "modeDownAction", "Alt+Down", false},
              {"Comment / Uncomment", "commentUncommentAction", "Ctrl+/", false}});
}

void buildDocument(QMenu *menu, LWDocumentMenuController *controller, const LWEnvironment *environment)
{
    addItems(menu, controller,
             {{"Go to Line...", "goToLineAction", "Ctrl+L", false},
              {"Scroll Page Up", "scrollPageUpAction", "Alt+PgUp", false},
              {"Scroll Page Down", "scrollPageDownAction", "Alt+PgDown", false},
              {"Scroll to Selection", "scrollToSelectionAction", "Ctrl+Alt+J", false}});
    addItems(menu->addMenu(QStringLiteral("Bookmarks")), controller,
             {{"Mark Current Line", "bookmarkMarkCurrentAction", "Ctrl+F2", false},
              {"Unmark Current Line", "bookmarkUnmarkCurrentAction", "Ctrl+Shift+F2", false},
              {"Remove All Bookmarks", "bookmarkRemoveAllAction", "", false}});
    addItems(menu->addMenu(QStringLiteral("Folding")), controller,
             {{"Fold All", "foldingFoldAllAction", "Ctrl+Alt+0", false},
              {"Unfold All", "foldingUnfoldAllAction", "Ctrl+Alt+Shift+0", false},
              {"Fold Current", "foldingFoldCurrentAction", "Ctrl+Alt+[", false},
              {"Unfold Current", "foldingUnfoldCurrentAction", "Ctrl+Alt+]", false}});
    menu->addSeparator();
    QMenu *languages = menu->addMenu(QStringLiteral("Language"));
    languages->setObjectName(QStringLiteral("specsMenu"));
    addItem(languages, controller, QStringLiteral("Override default for current extension"),
            QStringLiteral("setDefaultForCurrentExtension"), QString(), true);
    languages->addSeparator();
    if (environment)
        addBundleItems(languages, controller,
                       environment->menuArrayFor(QStringLiteral("specs"), QStringLiteral("setSpecAction:")),
                       QStringLiteral("setSpecAction"));
}

void buildView(QMenu *menu, LWViewMenuController *controller, const LWEnvironment *environment)
{
    addItems(menu, controller,
             {{"Sidebar", "toggleSidebarAction", "Ctrl+Alt+S", true},
              {"Tab Bar", "toggleTabsAction", "", true},
              {"Status Bar", "toggleStatusBarAction", "", true},
              {"Utility Pane", "toggleUtilityViewAction", "Ctrl+Shift+U", true},
              {"--", "", "", false},
              {"Editor Panel", "togglePanelAction", "", true},
              {"Terminal Focus", "toggleTerminalFocusAction", "Ctrl+`", false},
              {"Line Numbers", "toggleGutterAction", "", true},
              {"Print Margin", "togglePrintMarginAction", "", true},
              {"Indentation Guides", "toggleIndentationGuidesAction", "", true},
              {"Invisible Characters", "toggleInvisiblesAction", "", true},
              {"Soft Tabs", "useSoftTabsToggle", "", true},
              {"Word Wrap", "useWordWrapToggle", "Alt+Z", true},
              {"Completion", "toggleCompletionAction", "", true}});
    addItems(menu->addMenu(QStringLiteral("Tab Size")), controller,
             {{"2", "tabSize2Switch", "", true},
              {"4", "tabSize4Switch", "", true},
              {"8", "tabSize8Switch", "", true},
              {"12", "tabSize12Switch", "", true}});
    addItems(menu->addMenu(QStringLiteral("Wrap Limit")), controller,
             {{"Automatic", "wrapLimitsAutomaticSwitch", "", true},
              {"40", "wrapLimits40Switch", "", true},
              {"80", "wrapLimits80Switch", "", true},
              {"120", "wrapLimits120Switch", "", true}});
    menu->addSeparator();
    addItems(menu, controller,
             {{"Zoom In", "fontZoomInAction", "Ctrl+=", false}, {"Zoom Out", "fontZoomOutAction", "Ctrl+-", false}});
    QMenu *themes = menu->addMenu(QStringLiteral("Themes"));
    themes->setObjectName(QStringLiteral("themesMenu"));
    fillThemes(themes, controller, environment);
}

void buildFind(QMenu *menu, LWFindMenuController *controller)
{
    addItems(menu, controller,
             {{"Find...", "findAction", "Ctrl+F", false},
              {"Find Next", "findNextAction", "Ctrl+G", false},
              {"Find Previous", "findPreviousAction", "Ctrl+Shift+G", false},
              {"Replace", "replaceAction", "Ctrl+Alt+F", false},
              {"Replace All", "replaceAllAction", "Ctrl+Alt+Shift+F", false},
              {"Use Selection for Find", "useSelectionForFindAction", "Ctrl+E", false},
              {"--", "", "", false},
              {"Regular Expressions", "useRegularExpressionsToggle", "", true},
              {"Case Sensitive", "caseSensitiveToggle", "", true},
              {"Whole Words", "matchWholeWordToggle", "", true},
              {"--", "", "", false},
              {"In Document", "documentScopeSwitch", "", true},
              {"In Selection", "selectionScopeSwitch", "", true}});
}

}

void build(QMenuBar *bar, const Controllers &controllers, const LWEnvironment *environment)
{
    QMenu *edit = bar->addMenu(QStringLiteral("Edit"));
    buildEdit(edit, controllers.edit);
    validate(edit, controllers.edit);
    QMenu *document = bar->addMenu(QStringLiteral("Document"));
    buildDocument(document, controllers.document, environment);
    validate(document, controllers.document);
    QMenu *view = bar->addMenu(QStringLiteral("View"));
    buildView(view, controllers.view, environment);
    validate(view, controllers.view);
    QMenu *find = bar->addMenu(QStringLiteral("Find"));
    buildFind(find, controllers.find);
    validate(find, controllers.find);
}

void fillThemes(QMenu *themes, LWViewMenuController *controller, const LWEnvironment *environment)
{
    themes->clear();
    if (environment)
        addBundleItems(themes, controller,
                       environment->menuArrayFor(QStringLiteral("themes"), QStringLiteral("setThemeAction:")),
                       QStringLiteral("setThemeAction"));
}

}
