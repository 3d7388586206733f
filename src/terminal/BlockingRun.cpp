#include "terminal/BlockingRun.h"

#include <QDebug>
#include <QProcess>

bool runToExit(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.start(program, arguments);
    if (!process.waitForStarted(-1)) {
        qWarning().noquote() << QStringLiteral("Cannot start %1: %2").arg(program, process.errorString());
        return false;
    }
    process.waitForFinished(-1);
    return true;
}
