#pragma once

#include <functional>

class QAction;
class QMenu;

// Keeps a menu's items enabled or disabled as their controller says, at the
// two moments it matters: when the menu (or one of its submenus) opens, and
// when the key of one of its items is pressed, just before the shortcut is
// looked up. So a shortcut follows the item's current state even while its
// menu stays closed, and items added to the menu later are covered too.
namespace MenuValidation {

using Validator = std::function<bool(QAction *item)>;

// The validator answers whether an item (never a separator or a submenu's
// own item) is enabled; it lives as long as the menu.
void install(QMenu *menu, Validator validator);

}
