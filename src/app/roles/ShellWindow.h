#pragma once

#include <QString>

class LWSpec;

// The main window's frame: its title, which panes show, and the menus that
// follow the installed extensions.
class ShellWindow
{
public:
    virtual ~ShellWindow() = default;

    virtual void setWindowTitle(const QString &title) = 0;
    virtual void setSidebarVisible(bool visible) = 0;
    virtual void setTabBarVisible(bool visible) = 0;
    virtual void setStatusBarVisible(bool visible) = 0;

    // The run button's visibility, rebuilding the Themes menu after the user
    // adds a theme, the plugin menus of one specification (or none) and the
    // desktop's recent-documents list.
    virtual void setRunButtonVisible(bool visible) = 0;
    virtual void updateThemesMenu() = 0;
    virtual void updatePluginMenusForSpec(LWSpec *spec) = 0;
    virtual void noteRecentDocument(const QString &path) = 0;
};
