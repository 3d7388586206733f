#pragma once

#include "app/ui/FileMenu.h"

#include <memory>

class LWDocumentMenuController;
class LWEditMenuController;
class LWEnvironment;
class LWFindMenuController;
class LWHelpMenuController;
class LWMainWindow;
class LWPluginsMenuController;
class LWSpec;
class LWViewMenuController;
class PluginsMenu;
class ShellPages;
class WindowColors;

// Finishes the main window: at creation the panes and the whole menu bar
// (File, Edit, Find, View, Document, Plugins, Window, Help) with the menus
// that follow the installed extensions; once the editor page is up, the
// stored settings. Rebuilds the Themes menu and the plugin menus on demand.
class LWUIController
{
public:
    struct MenuControllers
    {
        FileMenu::Controller file;
        LWEditMenuController *edit;
        LWDocumentMenuController *document;
        LWViewMenuController *view;
        LWFindMenuController *find;
        LWPluginsMenuController *plugins;
    };

    // Runs setupUI() and setupCustomMenus().
    LWUIController(LWMainWindow *window, LWEnvironment *environment, ShellPages *pages,
                   const MenuControllers &controllers, const std::function<void()> &quit);
    ~LWUIController();

    // The run button runs the language's plugin; the utility pane starts hidden.
    void setupUI();
    void setupCustomMenus();
    void updateThemesMenu();
    void updatePluginMenusForSpec(LWSpec *spec);
    // Applies the stored settings by double flips, then shows the editor and
    // its tab bar in place of the loading spinner, coloured by the theme.
    void setupUIwithDefaults();

private:
    LWMainWindow *window;
    LWEnvironment *environment;
    ShellPages *pages;
    MenuControllers controllers;
    std::function<void()> quit;
    std::unique_ptr<LWHelpMenuController> help;
    std::unique_ptr<PluginsMenu> pluginsMenu;
    std::unique_ptr<WindowColors> colors;
};
