#pragma once

#include <QString>
#include <QStringList>

class LWViewMenuController;

// Applying a stored View setting to the window or the editor through the
// View menu's own action, so the interface never drifts from the store.
namespace ViewSettings {

// The on/off settings, in the order the preferences sheet applies them.
const QStringList &switches();
// The settings the preferences window applies as soon as they change: the
// switches, tab size, wrap limit, font name and font size.
const QStringList &liveKeys();

// Applies the stored value of key: an on/off setting by the double flip
// (store the opposite, then run the menu toggle, which stores the value
// again and shows it), tab size, wrap limit and font through their setters.
// Returns false for a key the View menu does not own.
bool apply(LWViewMenuController &view, const QString &key);

}
