#pragma once

#include <QObject>

class QAction;
class QWidget;
class LWEnvironment;
class ShellDialogs;

// The Plugins menu's actions: running a plugin (from its menu item, or the run
// button's bound plugin), installing plugin and theme bundles the user picks,
// revealing the user folder, and disabling plugins that cannot run sandboxed.
class LWPluginsMenuController : public QObject
{
    Q_OBJECT

public:
    // Installing a bundle confirms through dialogs.
    LWPluginsMenuController(LWEnvironment *environment, QWidget *window, ShellDialogs &dialogs,
                            QObject *parent = nullptr);

public slots:
    // A menu item runs its represented plugin; any other sender (the run
    // button or its key) runs the registry's run plugin.
    void executePluginAction(QAction *sender = nullptr);
    void installNewPluginAction();
    void installNewThemeAction();
    void openFolderInFinder();
    // Disabled when sandboxed and the item's plugin has "nosandbox".
    bool validateMenuItem(QAction *item) const;

private:
    // Asks for a bundle folder of the type; "" when cancelled.
    QString chooseBundle(const QString &type) const;
    // Asks for a bundle, adds it with the registry operation and confirms.
    void installBundle(const QString &type, void (LWEnvironment::*add)(const QString &),
                       const QString &message, const QString &userFolder);

    LWEnvironment *environment;
    QWidget *window;
    ShellDialogs &dialogs;
};
