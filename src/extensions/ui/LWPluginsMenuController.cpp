#include "extensions/ui/LWPluginsMenuController.h"

#include "app/LWPaths.h"
#include "app/roles/ShellDialogs.h"
#include "documents/FileManager.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"

#include <QAction>
#include <QFileDialog>

LWPluginsMenuController::LWPluginsMenuController(LWEnvironment *environment, QWidget *window, ShellDialogs &dialogs,
                                                 QObject *parent)
    : QObject(parent), environment(environment), window(window), dialogs(dialogs)
{
}

void LWPluginsMenuController::executePluginAction(QAction *sender)
{
    LWPlugin *plugin = sender ? qobject_cast<LWPlugin *>(sender->data().value<QObject *>())
                              : environment->runPlugin();
    if (plugin)
        plugin->execute();
}

bool LWPluginsMenuController::validateMenuItem(QAction *item) const
{
    const auto *plugin = qobject_cast<LWPlugin *>(item->data().value<QObject *>());
    return !(plugin && LWPaths::isSandboxed() && plugin->needsNoSandbox());
}

QString LWPluginsMenuController::chooseBundle(const QString &type) const
{
    QFileDialog dialog(window);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setNameFilter(QStringLiteral("*.%1").arg(type));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString path = dialog.selectedFiles().first();
    return path.endsWith(QLatin1Char('.') + type) ? path : QString();
}

void LWPluginsMenuController::installBundle(const QString &type, void (LWEnvironment::*add)(const QString &),
                                            const QString &message, const QString &userFolder)
{
    const QString path = chooseBundle(type);
    if (path.isEmpty())
        return;
    (environment->*add)(path);
    dialogs.showAlert(message, LWPaths::dataPath(userFolder));
}

void LWPluginsMenuController::installNewPluginAction()
{
    installBundle(QStringLiteral("lwPlugin"), &LWEnvironment::addUserPluginFromPath,
                  QStringLiteral("Plugin installed successfully!"), QStringLiteral("User/Plugins"));
}

void LWPluginsMenuController::installNewThemeAction()
{
    installBundle(QStringLiteral("lwTheme"), &LWEnvironment::addUserThemeFromPath,
                  QStringLiteral("Theme installed successfully!"), QStringLiteral("User/Themes"));
}

void LWPluginsMenuController::openFolderInFinder()
{
    FileManager::showInFinder(LWPaths::dataPath(QStringLiteral("User/")));
}
