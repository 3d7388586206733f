#include "editor/ViewSettings.h"

#include "app/LWDefaults.h"
#include "editor/LWViewMenuController.h"

#include <QHash>

namespace ViewSettings {

namespace {

using Toggle = void (LWViewMenuController::*)(QAction *);

const QHash<QString, Toggle> &toggles()
{
    using View = LWViewMenuController;
    static const QHash<QString, Toggle> table = {
        {QStringLiteral("LW_Sidebar"), &View::toggleSidebarAction},
        {QStringLiteral("LW_TabBar"), &View::toggleTabsAction},
        {QStringLiteral("LW_Panel"), &View::togglePanelAction},
        {QStringLiteral("LW_StatusBar"), &View::toggleStatusBarAction},
        {QStringLiteral("LW_PrintMargin"), &View::togglePrintMarginAction},
        {QStringLiteral("LW_IndentationGuides"), &View::toggleIndentationGuidesAction},
        {QStringLiteral("LW_Gutter"), &View::toggleGutterAction},
        {QStringLiteral("LW_Invisibles"), &View::toggleInvisiblesAction},
        {QStringLiteral("LW_SoftTabs"), &View::useSoftTabsToggle},
        {QStringLiteral("LW_WordWrap"), &View::useWordWrapToggle},
    };
    return table;
}

int storedInteger(const QString &key)
{
    return static_cast<int>(LWDefaults::shared()->integerForKey(key));
}

}

const QStringList &switches()
{
    static const QStringList keys{"LW_Sidebar",          "LW_TabBar",  "LW_Panel",     "LW_StatusBar",
                                  "LW_PrintMargin",      "LW_IndentationGuides",       "LW_Gutter",
                                  "LW_Invisibles",       "LW_SoftTabs", "LW_WordWrap"};
    return keys;
}

const QStringList &liveKeys()
{
    static const QStringList keys =
        switches() + QStringList{"LW_TabSize", "LW_WrapLimit", "LW_FontName", "LW_FontSize"};
    return keys;
}

bool apply(LWViewMenuController &view, const QString &key)
{
    LWDefaults &defaults = *LWDefaults::shared();
    if (const Toggle toggle = toggles().value(key)) {
        defaults.setBool(key, !defaults.boolForKey(key));
        (view.*toggle)(nullptr);
    } else if (key == QLatin1String("LW_TabSize")) {
        view.tabSizeSwitch(storedInteger(key));
    } else if (key == QLatin1String("LW_WrapLimit")) {
        view.wrapLimitsSwitch(storedInteger(key));
    } else if (key == QLatin1String("LW_FontSize")) {
        view.setFontSize(storedInteger(key));
    } else if (key == QLatin1String("LW_FontName")) {
        view.setFontName(defaults.fontName());
    } else {
        return false;
    }
    return true;
}

}
