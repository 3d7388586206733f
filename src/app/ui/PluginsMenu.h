#pragma once

class LWEnvironment;
class LWPluginsMenuController;
class LWSpec;
class QMenu;

// The Plugins menu: two fixed items for installing bundles, then the plugins
// of the current language (with a separator), the global plugin index, the
// user's plugins and the unscoped plugins by category, rebuilt whenever the
// current language changes.
class PluginsMenu
{
public:
    PluginsMenu(QMenu *menu, LWEnvironment *environment, LWPluginsMenuController *controller);

    void rebuildFor(LWSpec *spec);

private:
    QMenu *menu;
    LWEnvironment *environment;
    LWPluginsMenuController *controller;
};
