#include "editor/EditorCommand.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"

#include <QAction>

namespace EditorCommand {

void send(const QString &script)
{
    if (ShellPages *pages = ShellRoles::pages())
        pages->sendToEditor(script);
}

QString ask(const QString &script)
{
    ShellPages *pages = ShellRoles::pages();
    return pages ? pages->evaluateInEditor(script) : QString();
}

QString booleanCall(const QString &function, bool value)
{
    return QStringLiteral("%1(%2);").arg(function, value ? QStringLiteral("true") : QStringLiteral("false"));
}

void flipAndSend(const QString &key, const QString &function)
{
    LWDefaults &defaults = *LWDefaults::shared();
    defaults.setBool(key, !defaults.boolForKey(key));
    send(booleanCall(function, defaults.boolForKey(key)));
}

int titleNumber(const QAction *item)
{
    return item ? item->text().toInt() : 0;
}

QString actionName(const QAction *item)
{
    return item ? item->objectName() : QString();
}

}
