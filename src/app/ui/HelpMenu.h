#pragma once

class LWHelpMenuController;
class QMenuBar;
class QWidget;

// The Help menu: Documentation (F1), Support and About Larkwood.
namespace HelpMenu {

void build(QMenuBar *bar, LWHelpMenuController *controller, QWidget *window);

}
