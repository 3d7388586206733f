#pragma once

#include <QVariantList>

class LWDocumentMenuController;
class LWEditMenuController;
class LWEnvironment;
class LWFindMenuController;
class LWViewMenuController;
class QMenu;
class QMenuBar;

// The Edit, Find, View and Document menus with their keyboard shortcuts.
// Every item carries its action's name as object name, calls the controller's
// slot of that name with itself when chosen, and is validated by the
// controller each time its menu opens and before its key takes effect. The Document menu's Language submenu
// has the object name "specsMenu"; languages and themes (by light and dark)
// are sorted and grouped so that every submenu fits on the screen.
namespace EditorMenus {

struct Controllers
{
    LWEditMenuController *edit;
    LWDocumentMenuController *document;
    LWViewMenuController *view;
    LWFindMenuController *find;
};

void build(QMenuBar *bar, const Controllers &controllers, const LWEnvironment *environment);

// Refills the View menu's Themes submenu (object name "themesMenu") from the registry.
void fillThemes(QMenu *themes, LWViewMenuController *controller, const LWEnvironment *environment);

}
