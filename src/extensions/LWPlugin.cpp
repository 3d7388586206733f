#include "extensions/LWPlugin.h"

#include "app/LWPaths.h"
#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

LWPlugin *LWPlugin::pluginFromPath(const QString &path)
{
    return new LWPlugin(path);
}

bool LWPlugin::mayRun() const
{
    return !LWPaths::isSandboxed() || !needsNoSandbox();
}

QString LWPlugin::runScript(const QString &scriptSource) const
{
    const QByteArray encoded = QJsonDocument(QJsonArray{scriptSource}).toJson(QJsonDocument::Compact);
    return QStringLiteral("$Core.runPlugin('%1','%2',%3);")
        .arg(infoText(QStringLiteral("name")), path(), QString::fromUtf8(encoded));
}

void LWPlugin::execute() const
{
    QFile script(path() + QStringLiteral("/script.coffee"));
    if (!script.open(QIODevice::ReadOnly)) {
        qWarning("LWPlugin : execute :: no script file in %s", qUtf8Printable(path()));
        if (ShellDialogs *dialogs = ShellRoles::dialogs())
            dialogs->showAlert(QStringLiteral("Plugin error"),
                             QStringLiteral("Plugin doesn't seem to be correctly set up - no script file found"));
        return;
    }
    if (ShellPages *pages = ShellRoles::pages())
        pages->sendToEditor(runScript(QString::fromUtf8(script.readAll())));
}
