#include "terminal/DetachedRun.h"

#include <QProcess>

void discardFurtherOutput(QProcess *process)
{
    QObject::connect(process, &QProcess::readyReadStandardOutput, process,
                     [process] { process->readAllStandardOutput(); });
    QObject::connect(process, &QProcess::readyReadStandardError, process,
                     [process] { process->readAllStandardError(); });
}

void letRunDetached(QProcess *process)
{
    if (!process)
        return;
    QObject::disconnect(process, nullptr, nullptr, nullptr);
    process->setParent(nullptr);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    discardFurtherOutput(process);
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
}
