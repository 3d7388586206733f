#pragma once

#include <QObject>
#include <QPointer>

class LWDefaultsController;
class LWMasterPreferences;
class LWViewMenuController;
class PreferencesSheet;
class QMenu;
class ShellDialogs;

// The commands around the settings: the preferences window, the quick
// preferences sheet, resetting every setting (after asking) and installing
// the command-line launcher, with their menu items.
class PreferencesCommands : public QObject
{
    Q_OBJECT

public:
    PreferencesCommands(QWidget *mainWindow, ShellDialogs &dialogs, LWViewMenuController &view,
                        LWDefaultsController &defaultsController);

    // Appends the four items to menu, after a separator.
    void addMenuItems(QMenu *menu);

    // The open preferences window, or null.
    LWMasterPreferences *masterPreferences() const;

public slots:
    // Brings the open window to the front rather than opening a second one.
    void showPreferencesWindow();
    void showPreferencesSheet();
    // Asks first; then every setting reads its registered value again and the
    // window and the editor show them.
    void resetDefaults();
    void installShellSupport();

private:
    void applyReset();

    QWidget *mainWindow;
    ShellDialogs &dialogs;
    LWViewMenuController &view;
    LWDefaultsController &defaultsController;
    QPointer<LWMasterPreferences> master;
    QPointer<PreferencesSheet> sheet;
};
