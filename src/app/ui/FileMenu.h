#pragma once

#include <functional>

class LWEnvironment;
class LWFileMenuController;
class QMenuBar;

// The File menu with its keyboard shortcuts. Every item carries its action's
// name as object name ("newAction", "saveAction", ...), calls the
// controller's action when chosen, and is validated by the controller each
// time the menu opens and before its key takes effect. The New from Template submenu ("templatesMenu") has
// one submenu per language. Quit hands over to quit.
namespace FileMenu {

// The controller in use at the time an item is chosen.
using Controller = std::function<LWFileMenuController &()>;

void build(QMenuBar *bar, const Controller &controller, const LWEnvironment *environment,
           const std::function<void()> &quit);

}
