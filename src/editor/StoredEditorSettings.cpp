#include "editor/StoredEditorSettings.h"

#include "app/LWDefaults.h"
#include "editor/LWFindMenuController.h"
#include "editor/LWViewMenuController.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWTheme.h"

#include <QAction>

namespace StoredEditorSettings {

namespace {

template <typename Controller>
void doubleFlip(const QString &key, Controller &controller, void (Controller::*toggle)(QAction *))
{
    LWDefaults *defaults = LWDefaults::shared();
    defaults->setBool(key, !defaults->boolForKey(key));
    (controller.*toggle)(nullptr);
}

void applyTheme(LWViewMenuController &view)
{
    const LWEnvironment *environment = LWEnvironment::shared();
    const QString name = LWDefaults::shared()->stringForKey(QStringLiteral("LW_Theme"));
    LWTheme *theme = environment ? environment->themeNames().value(name) : nullptr;
    if (!theme) {
        qInfo("The stored theme %s is not installed; the editor keeps its own", qPrintable(name));
        return;
    }
    QAction item(name);
    item.setData(QVariant::fromValue<QObject *>(theme));
    view.setThemeAction(&item);
}

}

void apply(LWViewMenuController &view, LWFindMenuController &find)
{
    using View = LWViewMenuController;
    using Find = LWFindMenuController;
    doubleFlip(QStringLiteral("LW_Panel"), view, &View::togglePanelAction);
    doubleFlip(QStringLiteral("LW_Gutter"), view, &View::toggleGutterAction);
    doubleFlip(QStringLiteral("LW_PrintMargin"), view, &View::togglePrintMarginAction);
    doubleFlip(QStringLiteral("LW_IndentationGuides"), view, &View::toggleIndentationGuidesAction);
    doubleFlip(QStringLiteral("LW_Invisibles"), view, &View::toggleInvisiblesAction);
    doubleFlip(QStringLiteral("LW_SoftTabs"), view, &View::useSoftTabsToggle);
    doubleFlip(QStringLiteral("LW_WordWrap"), view, &View::useWordWrapToggle);
    doubleFlip(QStringLiteral("LW_Search_Regex"), find, &Find::useRegularExpressionsToggle);
    doubleFlip(QStringLiteral("LW_Search_Case"), find, &Find::caseSensitiveToggle);
    doubleFlip(QStringLiteral("LW_Search_Whole_Word"), find, &Find::matchWholeWordToggle);
    const LWDefaults *defaults = LWDefaults::shared();
    view.tabSizeSwitch(static_cast<int>(defaults->integerForKey(QStringLiteral("LW_TabSize"))));
    view.wrapLimitsSwitch(static_cast<int>(defaults->integerForKey(QStringLiteral("LW_WrapLimit"))));
    view.setFontSize(static_cast<int>(defaults->integerForKey(QStringLiteral("LW_FontSize"))));
    view.setFontName(defaults->fontName());
    applyTheme(view);
}

}
