#include "editor/StoredEditorSettings.h"

#include "app/LWDefaults.h"
#include "editor/EditorCommand.h"
#include "editor/LWFindMenuController.h"
#include "editor/LWViewMenuController.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWTheme.h"

namespace StoredEditorSettings {

namespace {

// A setting the window and the page start without, and the toggle that
// changes it.
template <typename Controller>
struct Flip
{
    const char *key;
    bool flipsWhen; // the stored value that differs from the start state
    void (Controller::*toggle)(QAction *);
};

template <typename Controller>
void flipWhereStoredDiffers(Controller &controller, std::initializer_list<Flip<Controller>> flips)
{
    LWDefaults *defaults = LWDefaults::shared();
    for (const Flip<Controller> &flip : flips) {
        const QString key = QString::fromLatin1(flip.key);
        if (defaults->boolForKey(key) != flip.flipsWhen)
            continue;
        defaults->setBool(key, !flip.flipsWhen);
        (controller.*flip.toggle)(nullptr);
    }
}

}

void applyTheme()
{
    const LWEnvironment *environment = LWEnvironment::shared();
    const QString name = LWDefaults::shared()->stringForKey(QStringLiteral("LW_Theme"));
    const LWTheme *theme = environment ? environment->themeNames().value(name) : nullptr;
    if (!theme) {
        qInfo("The stored theme %s is not installed; the editor keeps its own", qPrintable(name));
        return;
    }
    EditorCommand::send(QStringLiteral("lw.setTheme('%1');").arg(theme->infoText(QStringLiteral("name"))));
}

void apply(LWViewMenuController &view, LWFindMenuController &find)
{
    using View = LWViewMenuController;
    using Find = LWFindMenuController;
    flipWhereStoredDiffers<View>(view, {{"LW_Sidebar", false, &View::toggleSidebarAction},
                                        {"LW_TabBar", false, &View::toggleTabsAction},
                                        {"LW_StatusBar", false, &View::toggleStatusBarAction},
                                        {"LW_Panel", true, &View::togglePanelAction},
                                        {"LW_Gutter", false, &View::toggleGutterAction},
                                        {"LW_PrintMargin", false, &View::togglePrintMarginAction},
                                        {"LW_IndentationGuides", false, &View::toggleIndentationGuidesAction},
                                        {"LW_Invisibles", true, &View::toggleInvisiblesAction},
                                        {"LW_SoftTabs", true, &View::useSoftTabsToggle},
                                        {"LW_WordWrap", true, &View::useWordWrapToggle},
                                        {"LW_Completion", true, &View::toggleCompletionAction}});
    flipWhereStoredDiffers<Find>(find, {{"LW_Search_Regex", true, &Find::useRegularExpressionsToggle},
                                        {"LW_Search_Case", true, &Find::caseSensitiveToggle},
                                        {"LW_Search_Whole_Word", true, &Find::matchWholeWordToggle}});
    const LWDefaults *defaults = LWDefaults::shared();
    view.tabSizeSwitch(static_cast<int>(defaults->integerForKey(QStringLiteral("LW_TabSize"))));
    view.wrapLimitsSwitch(static_cast<int>(defaults->integerForKey(QStringLiteral("LW_WrapLimit"))));
    EditorCommand::send(
        QStringLiteral("lw.setFontSize(%1);").arg(defaults->integerForKey(QStringLiteral("LW_FontSize"))));
    applyTheme();
    view.setFontName(defaults->fontName());
}

}
