#pragma once

#include <QVariantMap>

class LWViewMenuController;

// The quick preferences sheet's settings logic: takes a snapshot of the
// settings when the sheet opens and, when it closes, applies through the View
// menu what differs from it: the on/off settings by the double flip, then tab
// size and wrap limit. A setting changed and changed back sends nothing; font,
// theme and search settings are not applied on this path.
class LWPreferencesController
{
public:
    explicit LWPreferencesController(LWViewMenuController &view);

    void close();

private:
    LWViewMenuController &view;
    // Each setting as it read when the sheet opened.
    QVariantMap snapshot;
};
