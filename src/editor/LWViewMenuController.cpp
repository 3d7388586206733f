#include "editor/LWViewMenuController.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellWindow.h"
#include "editor/EditorCommand.h"
#include "editor/JavaScriptEscape.h"
#include "extensions/LWTheme.h"

#include <QAction>
#include <QHash>
#include <QTimer>

namespace {

const QString tabSizeKey = QStringLiteral("LW_TabSize");
const QString wrapLimitKey = QStringLiteral("LW_WrapLimit");
const QString fontSizeKey = QStringLiteral("LW_FontSize");
const QString themeKey = QStringLiteral("LW_Theme");

// On/off items and the boolean default each one shows.
const QHash<QString, QString> &toggleKeys()
{
    static const QHash<QString, QString> keys = {
        {QStringLiteral("toggleSidebarAction"), QStringLiteral("LW_Sidebar")},
        {QStringLiteral("toggleTabsAction"), QStringLiteral("LW_TabBar")},
        {QStringLiteral("toggleStatusBarAction"), QStringLiteral("LW_StatusBar")},
        {QStringLiteral("togglePanelAction"), QStringLiteral("LW_Panel")},
        {QStringLiteral("toggleGutterAction"), QStringLiteral("LW_Gutter")},
        {QStringLiteral("togglePrintMarginAction"), QStringLiteral("LW_PrintMargin")},
        {QStringLiteral("toggleIndentationGuidesAction"), QStringLiteral("LW_IndentationGuides")},
        {QStringLiteral("toggleInvisiblesAction"), QStringLiteral("LW_Invisibles")},
        {QStringLiteral("useSoftTabsToggle"), QStringLiteral("LW_SoftTabs")},
        {QStringLiteral("useWordWrapToggle"), QStringLiteral("LW_WordWrap")},
        {QStringLiteral("toggleCompletionAction"), QStringLiteral("LW_Completion")},
    };
    return keys;
}

// Fixed-number items: checked when the default equals the number. The number
// is fixed here even though the actions read it from the title.
struct NumberItem
{
    QString key;
    int value;
};

const QHash<QString, NumberItem> &numberItems()
{
    static const QHash<QString, NumberItem> items = {
        {QStringLiteral("tabSize2Switch"), {tabSizeKey, 2}},
        {QStringLiteral("tabSize4Switch"), {tabSizeKey, 4}},
        {QStringLiteral("tabSize8Switch"), {tabSizeKey, 8}},
        {QStringLiteral("tabSize12Switch"), {tabSizeKey, 12}},
        {QStringLiteral("wrapLimits40Switch"), {wrapLimitKey, 40}},
        {QStringLiteral("wrapLimits80Switch"), {wrapLimitKey, 80}},
        {QStringLiteral("wrapLimits120Switch"), {wrapLimitKey, 120}},
        {QStringLiteral("wrapLimitsAutomaticSwitch"), {wrapLimitKey, 0}},
    };
    return items;
}

bool isChecked(const QAction *item, ShellPages &pages)
{
    const LWDefaults &defaults = *LWDefaults::shared();
    const QString name = EditorCommand::actionName(item);
    if (toggleKeys().contains(name))
        return defaults.boolForKey(toggleKeys().value(name));
    if (numberItems().contains(name)) {
        const NumberItem number = numberItems().value(name);
        return defaults.integerForKey(number.key) == number.value;
    }
    if (name == QLatin1String("toggleUtilityViewAction")) {
        return pages.isUtilityViewVisible();
    }
    if (name == QLatin1String("setThemeAction"))
        return item->text() == defaults.stringForKey(themeKey);
    return false;
}

}

LWViewMenuController::LWViewMenuController(ShellPages &pages, ShellWindow &window)
    : pages(pages),
      window(window)
{
}

bool LWViewMenuController::validateMenuItem(QAction *item) const
{
    if (item && item->isCheckable())
        item->setChecked(isChecked(item, pages));
    return true;
}

void LWViewMenuController::toggleSidebarAction(QAction *)
{
    flipLayout(QStringLiteral("LW_Sidebar"), &ShellWindow::setSidebarVisible);
}

void LWViewMenuController::toggleTabsAction(QAction *)
{
    flipLayout(QStringLiteral("LW_TabBar"), &ShellWindow::setTabBarVisible);
}

void LWViewMenuController::toggleStatusBarAction(QAction *)
{
    flipLayout(QStringLiteral("LW_StatusBar"), &ShellWindow::setStatusBarVisible);
}

void LWViewMenuController::flipLayout(const QString &key, void (ShellWindow::*show)(bool))
{
    LWDefaults *defaults = LWDefaults::shared();
    defaults->setBool(key, !defaults->boolForKey(key));
    (window.*show)(defaults->boolForKey(key));
}

void LWViewMenuController::togglePanelAction(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_Panel"), QStringLiteral("lw.togglePanel"));
}

void LWViewMenuController::toggleGutterAction(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_Gutter"), QStringLiteral("lw.toggleGutter"));
}

void LWViewMenuController::toggleCompletionAction(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_Completion"), QStringLiteral("lw.setCompletion"));
}

void LWViewMenuController::togglePrintMarginAction(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_PrintMargin"), QStringLiteral("lw.togglePrintMargin"));
}

void LWViewMenuController::toggleIndentationGuidesAction(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_IndentationGuides"),
                               QStringLiteral("lw.toggleIndentationGuides"));
}

void LWViewMenuController::toggleInvisiblesAction(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_Invisibles"), QStringLiteral("lw.toggleInvisibles"));
}

void LWViewMenuController::useSoftTabsToggle(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_SoftTabs"), QStringLiteral("lw.toggleSoftTabs"));
}

void LWViewMenuController::useWordWrapToggle(QAction *)
{
    EditorCommand::flipAndSend(QStringLiteral("LW_WordWrap"), QStringLiteral("lw.toggleWordWrap"));
}

void LWViewMenuController::tabSize2Switch(QAction *sender)
{
    tabSizeSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::tabSize4Switch(QAction *sender)
{
    tabSizeSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::tabSize8Switch(QAction *sender)
{
    tabSizeSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::tabSize12Switch(QAction *sender)
{
    tabSizeSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::tabSizeSwitch(int size)
{
    LWDefaults::shared()->setInteger(tabSizeKey, size);
    EditorCommand::send(QStringLiteral("lw.setTabSize(%1);").arg(LWDefaults::shared()->integerForKey(tabSizeKey)));
}

void LWViewMenuController::wrapLimits40Switch(QAction *sender)
{
    wrapLimitsSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::wrapLimits80Switch(QAction *sender)
{
    wrapLimitsSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::wrapLimits120Switch(QAction *sender)
{
    wrapLimitsSwitch(EditorCommand::titleNumber(sender));
}

void LWViewMenuController::wrapLimitsAutomaticSwitch(QAction *)
{
    wrapLimitsSwitch(0);
}

void LWViewMenuController::wrapLimitsSwitch(int limit)
{
    LWDefaults::shared()->setInteger(wrapLimitKey, limit);
    EditorCommand::send(
        QStringLiteral("lw.setWrapLimit(%1);").arg(LWDefaults::shared()->integerForKey(wrapLimitKey)));
}

void LWViewMenuController::fontZoomInAction(QAction *)
{
    zoomBy(1);
}

void LWViewMenuController::fontZoomOutAction(QAction *)
{
    zoomBy(-1);
}

void LWViewMenuController::zoomBy(int steps)
{
    LWDefaults &defaults = *LWDefaults::shared();
    defaults.setInteger(fontSizeKey, defaults.integerForKey(fontSizeKey) + steps);
    EditorCommand::send(QStringLiteral("lw.setFontSize(%1);").arg(defaults.integerForKey(fontSizeKey)));
}

void LWViewMenuController::setFontSize(int size)
{
    QTimer::singleShot(0, this, [size] { EditorCommand::send(QStringLiteral("lw.setFontSize(%1);").arg(size)); });
}

void LWViewMenuController::setFontName(const QString &family)
{
    const QString script =
        QStringLiteral("lw.editor.setOption('fontFamily','%1');").arg(escapedForJavascript(family));
    QTimer::singleShot(0, this, [script] { EditorCommand::send(script); });
}

void LWViewMenuController::setThemeAction(QAction *sender)
{
    const auto *theme = sender ? qobject_cast<LWTheme *>(sender->data().value<QObject *>()) : nullptr;
    if (!theme) {
        qWarning("setThemeAction: the menu item carries no theme");
        return;
    }
    LWDefaults::shared()->setString(themeKey, theme->name());
    EditorCommand::send(QStringLiteral("lw.setTheme('%1');").arg(theme->infoText(QStringLiteral("name"))));
}

void LWViewMenuController::toggleUtilityViewAction(QAction *)
{
    if (!pages.isUtilityViewVisible()) {
        pages.openUtilityView();
        return;
    }
    pages.closeUtilityView();
    EditorCommand::send(QStringLiteral("$Core.haltPlugin()"));
}

void LWViewMenuController::toggleTerminalFocusAction(QAction *)
{
    EditorCommand::send(QStringLiteral("$Terminal.toggleFocus();"));
}
