#pragma once

#include <QStringList>

class QProcess;

// Starts an already configured process and waits until it has ended. A
// program that cannot be started is logged with the reason; the answer is
// then false and the process has produced nothing.
bool runToExit(QProcess &process, const QString &program, const QStringList &arguments);
