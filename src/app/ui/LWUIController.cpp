#include "app/ui/LWUIController.h"

#include "app/LWHelpMenuController.h"
#include "app/roles/ShellPages.h"
#include "app/ui/EditorMenus.h"
#include "app/ui/FocusedEditing.h"
#include "app/ui/HelpMenu.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/LWStatusBar.h"
#include "app/ui/PluginsMenu.h"
#include "app/ui/WindowColors.h"
#include "editor/StoredEditorSettings.h"
#include "extensions/ui/LWPluginsMenuController.h"

#include <QMenu>
#include <QMenuBar>
#include <QWebEngineView>

LWUIController::LWUIController(LWMainWindow *window, LWEnvironment *environment, ShellPages *pages,
                               const MenuControllers &controllers, const std::function<void()> &quit)
    : window(window), environment(environment), pages(pages), controllers(controllers), quit(quit),
      help(std::make_unique<LWHelpMenuController>()),
      colors(std::make_unique<WindowColors>(window, pages, environment))
{
    setupUI();
    setupCustomMenus();
}

LWUIController::~LWUIController() = default;

void LWUIController::setupUI()
{
    LWPluginsMenuController *plugins = controllers.plugins;
    QObject::connect(window, &LWMainWindow::runRequested, plugins, [plugins] { plugins->executePluginAction(); });
    window->setUtilityVisible(false);
}

void LWUIController::setupCustomMenus()
{
    QMenuBar *bar = window->menuBar();
    FileMenu::build(bar, controllers.file, environment, quit);
    EditorMenus::build(bar, {controllers.edit, controllers.document, controllers.view, controllers.find},
                       environment);
    FocusedEditing::addItems(bar->findChild<QMenu *>(QStringLiteral("editMenu")),
                             qobject_cast<QWebEngineView *>(window->editorView()), pages);
    window->statusArea()->setSpecMenu(bar->findChild<QMenu *>(QStringLiteral("specsMenu")));
    pluginsMenu = std::make_unique<PluginsMenu>(bar->addMenu(QStringLiteral("Plugins")),
                                                window->statusArea()->pluginsMenu(), window, environment,
                                                controllers.plugins);
    // Its items come with the tab bar's controllers; the menu keeps its place before Help.
    bar->addMenu(QStringLiteral("Window"));
    HelpMenu::build(bar, help.get(), window);
    updatePluginMenusForSpec(nullptr);
}

void LWUIController::updateThemesMenu()
{
    if (auto *themes = window->menuBar()->findChild<QMenu *>(QStringLiteral("themesMenu")))
        EditorMenus::fillThemes(themes, controllers.view, environment);
}

// The registry shows the run button again when the language binds a plugin
// to it; a document without a known language has none.
void LWUIController::updatePluginMenusForSpec(LWSpec *spec)
{
    window->setRunButtonVisible(false);
    pluginsMenu->rebuildFor(spec);
}

void LWUIController::setupUIwithDefaults()
{
    StoredEditorSettings::apply(*controllers.view, *controllers.find);
    window->setLoadingSpinnerVisible(false);
    window->showEditor();
    colors->follow();
}
