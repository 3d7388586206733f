#pragma once

#include "app/ui/PreferencesFrame.h"

#include <QStringList>

class LWViewMenuController;
class QComboBox;
class QFont;
class QLabel;

// The preferences window the Preferences command opens: five pages
// ("General", "Files", "Editor", "Pro", "Updates") whose controls are bound to
// the settings. While it is open, the settings the View menu owns reach the
// window and the editor as soon as a control changes them. It also sets the
// editor font from the font dialog and installs the command-line launcher.
class LWMasterPreferences : public PreferencesFrame
{
    Q_OBJECT

public:
    static const QStringList &pageIdentifiers();

    LWMasterPreferences(QWidget *mainWindow, LWViewMenuController &view);

    // The language names offered for new documents, sorted as the user reads them.
    const QStringList &specNames() const { return specs; }

public slots:
    // The font dialog's choice: its family goes into the font pop-up and the store.
    void changeFont(const QFont &font);
    void showFontDialog();
    void installShellSupport();

private:
    QWidget *generalPage();
    QWidget *filesPage();
    QWidget *editorPage();
    QWidget *proPage();
    QWidget *updatesPage();
    void showShellSupportState();

    QStringList specs;
    QComboBox *fontNamePopup = nullptr;
    QLabel *shellSupportState = nullptr;
};
