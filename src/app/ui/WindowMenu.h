#pragma once

class LWWindowMenuController;
class QMenuBar;

// The Window menu (next and previous tab and document), added to the menu
// bar unless it has one already, and the File menu's "Close Tab" and
// "Close All" items bound to the controller.
namespace WindowMenu {

void build(QMenuBar *bar, LWWindowMenuController &controller);

}
