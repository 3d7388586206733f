#include "app/ui/PreferencesCommands.h"

#include "app/LWDefaults.h"
#include "app/LWDefaultsController.h"
#include "app/LWPreferencesController.h"
#include "app/LWShellSupport.h"
#include "app/roles/ShellDialogs.h"
#include "app/ui/LWMasterPreferences.h"
#include "app/ui/PreferencesSheet.h"
#include "editor/LWViewMenuController.h"
#include "editor/StoredEditorSettings.h"

#include <QAction>
#include <QMenu>

PreferencesCommands::PreferencesCommands(QWidget *mainWindow, ShellDialogs &dialogs, LWViewMenuController &view,
                                         LWDefaultsController &defaultsController)
    : mainWindow(mainWindow), dialogs(dialogs), view(view), defaultsController(defaultsController)
{
}

void PreferencesCommands::addMenuItems(QMenu *menu)
{
    const QList<std::tuple<QString, QString, QKeySequence, void (PreferencesCommands::*)()>> items{
        {QStringLiteral("Preferences..."), QStringLiteral("showPreferencesWindow"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
         &PreferencesCommands::showPreferencesWindow},
        {QStringLiteral("Quick Preferences..."), QStringLiteral("showPreferencesSheet"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Comma), &PreferencesCommands::showPreferencesSheet},
        {QStringLiteral("Reset All Settings..."), QStringLiteral("resetDefaults"), QKeySequence(),
         &PreferencesCommands::resetDefaults},
        {QStringLiteral("Install Command-Line Launcher"), QStringLiteral("installShellSupport"), QKeySequence(),
         &PreferencesCommands::installShellSupport}};
    menu->addSeparator();
    for (const auto &[title, name, shortcut, command] : items) {
        QAction *item = menu->addAction(title, this, command);
        item->setObjectName(name);
        item->setShortcut(shortcut);
    }
}

LWMasterPreferences *PreferencesCommands::masterPreferences() const
{
    return master;
}

void PreferencesCommands::showPreferencesWindow()
{
    if (!master)
        master = new LWMasterPreferences(mainWindow, view);
    master->show();
    master->raise();
    master->activateWindow();
}

void PreferencesCommands::showPreferencesSheet()
{
    if (!sheet)
        sheet = new PreferencesSheet(mainWindow, view);
    sheet->show();
    sheet->raise();
    sheet->activateWindow();
}

void PreferencesCommands::resetDefaults()
{
    dialogs.showConfirmation(QStringLiteral("Reset all settings?"),
                             QStringLiteral("Every preference returns to its original value and the list of "
                                            "files to reopen is forgotten. Open documents stay open."),
                             [this](int confirmed) {
                                 if (confirmed == 1)
                                     applyReset();
                             });
}

void PreferencesCommands::applyReset()
{
    LWPreferencesController changes(view);
    defaultsController.resetDefaults();
    qInfo("All settings are reset to their registered values");
    LWShellSupport::noteInstalledState();
    changes.close();
    const LWDefaults &defaults = *LWDefaults::shared();
    view.setFontSize(static_cast<int>(defaults.integerForKey(QStringLiteral("LW_FontSize"))));
    view.setFontName(defaults.fontName());
    StoredEditorSettings::applyTheme();
}

void PreferencesCommands::installShellSupport()
{
    const LWShellSupport::Report report = LWShellSupport::install();
    dialogs.showAlert(report.title, report.informativeText);
}
