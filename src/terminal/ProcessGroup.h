#pragma once

#include <QStringList>

class QProcess;

// Children started in a process group of their own, so that a command and
// everything it started (pipelines, background jobs) can be stopped
// together. Every group started is remembered until it is killed, so that
// quitting can stop whatever is still running.
namespace ProcessGroup {

// Starts the program as QProcess::start does, as the leader of a new session
// and process group.
void start(QProcess *process, const QString &program, const QStringList &arguments);

// Kills the process and its whole group; answers false when it was not
// started by start() or has been killed already.
bool kill(const QProcess *process);

// Kills every group started by this program that is still remembered.
void killAll();

}
