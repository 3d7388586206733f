#pragma once

#include <QString>

class QAction;

// Sending the short script strings of the menus to the main editor page.
namespace EditorCommand {

// Sends script to the main editor page without waiting for it.
void send(const QString &script);

// Evaluates script in the main editor page and answers its string value; ""
// when no window is installed. Only for the shell's own events (menus).
QString ask(const QString &script);

// "function(true);" or "function(false);".
QString booleanCall(const QString &function, bool value);

// Stores the negation of the boolean default under key, then sends function
// with the newly stored value, so the default and the editor agree.
void flipAndSend(const QString &key, const QString &function);

// The menu item's title read as an integer (0 when it is not a number).
int titleNumber(const QAction *item);

// The action name a menu item carries (its object name, e.g. "togglePanelAction").
QString actionName(const QAction *item);

}
