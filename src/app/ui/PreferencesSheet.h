#pragma once

#include "app/LWPreferencesController.h"
#include "app/ui/PreferencesFrame.h"

class LWViewMenuController;

// The quick preferences sheet: a "General" pane for the parts of the window
// and an "Advanced" pane for the editor. Its controls only store; what
// changed is applied to the window and the editor when the sheet closes.
class PreferencesSheet : public PreferencesFrame
{
    Q_OBJECT

public:
    PreferencesSheet(QWidget *mainWindow, LWViewMenuController &view);

private:
    LWPreferencesController controller;
};
