#include "terminal/LWTerm.h"

#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellRoles.h"
#include "documents/LWDocumentManager.h"
#include "extensions/LWEnvironment.h"
#include "terminal/ChildEnvironment.h"
#include "terminal/LWTerminal.h"
#include "terminal/ProcessGroup.h"
#include "terminal/TerminalStartFolder.h"

#include <QDebug>

namespace {
const QString shellProgram = QStringLiteral("/usr/bin/env");

void showBusy(bool busy)
{
    ShellStatusBar *statusBar = ShellRoles::statusBar();
    if (!statusBar)
        return;
    statusBar->setStatusMessage(busy ? QStringLiteral("Running...") : QString());
    statusBar->setStatusSpinnerRunning(busy);
}

// The folder the previous command ended in, else the workspace's.
QString workingFolder()
{
    const LWEnvironment *registry = LWEnvironment::shared();
    const QString stored = registry ? registry->pwd() : QString();
    if (!WorkingFolderSentinel::folderPrefix(stored).isEmpty())
        return stored;
    return TerminalStartFolder::forWorkspace(LWDocumentManager::shared());
}

bool isNullElement(const QVariant &value)
{
    return !value.isValid() || value.typeId() == QMetaType::Nullptr;
}
}

std::shared_ptr<LWTerm> LWTerm::create()
{
    return std::shared_ptr<LWTerm>(new LWTerm);
}

QStringList LWTerm::sanitizedArgs(const QVariantList &args)
{
    QStringList sanitized;
    for (const QVariant &argument : args) {
        if (isNullElement(argument))
            continue;
        if (!argument.canConvert<QString>()) {
            qWarning().noquote() << QStringLiteral("Terminal argument of type %1 left out")
                                        .arg(QString::fromLatin1(argument.typeName()));
            continue;
        }
        QString text = argument.toString();
        text.replace(QLatin1Char('"'), QLatin1String("\\\""));
        sanitized.append(QLatin1Char('"') + text + QLatin1Char('"'));
    }
    return sanitized;
}

QString LWTerm::exec(const QStringList &args, const QVariantMap &environment)
{
    return LWTerminal::exec(args, environment);
}

QString LWTerm::exec(const QVariantList &args, const QVariantMap &environment, Handler onChunk,
                     Handler onCompleted)
{
    showBusy(true);
    action = std::move(onChunk);
    completed = std::move(onCompleted);
    collected.take();
    inputClosed = false;

    auto *child = new QProcess;
    process = child;
    if (!environment.isEmpty())
        child->setProcessEnvironment(ChildEnvironment::fromEntries(environment));
    const QString line = sentinel.commandLine(workingFolder(), sanitizedArgs(args));

    // The connections hold this run alive until the child has ended.
    std::shared_ptr<LWTerm> self = shared_from_this();
    QObject::connect(child, &QProcess::readyReadStandardOutput, child,
                     [self] { self->readChannel(self->outputReader); });
    QObject::connect(child, &QProcess::readyReadStandardError, child,
                     [self] { self->readChannel(self->errorReader); });
    QObject::connect(child, &QProcess::finished, child, [self](int code, QProcess::ExitStatus status) {
        self->finish(status == QProcess::NormalExit ? code : -1);
    });
    QObject::connect(child, &QProcess::errorOccurred, child, [self](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        qWarning().noquote() << QStringLiteral("Cannot start %1: %2")
                                    .arg(shellProgram, self->process->errorString());
        self->finish(-1);
    });
    ProcessGroup::start(child, shellProgram, {QStringLiteral("bash"), QStringLiteral("--login"), QStringLiteral("-c"), line});
    return QString();
}

void LWTerm::readChannel(Utf8ChannelReader &reader)
{
    QString chunk = reader.readAvailable(*process);
    const QString folder = sentinel.takeFolder(chunk);
    if (!folder.isNull() && LWEnvironment::shared())
        LWEnvironment::shared()->setPwd(folder);
    if (action)
        action(chunk);
    collected.append(chunk);
}

void LWTerm::finish(int status)
{
    QProcess *child = process;
    process = nullptr;
    lastExitStatus = status;
    if (completed)
        completed(collected.take());
    showBusy(false);
    // Dropping the connections releases this run; the lambdas' captures die
    // with them only after the current one has returned.
    QObject::disconnect(child, nullptr, nullptr, nullptr);
    child->deleteLater();
}

bool LWTerm::writeInput(const QString &text, QString *reason)
{
    if (!process || process->state() == QProcess::NotRunning) {
        *reason = QStringLiteral("no running process");
        return false;
    }
    if (inputClosed) {
        *reason = QStringLiteral("standard input is already closed");
        return false;
    }
    process->write(text.toUtf8());
    process->closeWriteChannel();
    inputClosed = true;
    return true;
}

void LWTerm::stop()
{
    action = nullptr;
    completed = nullptr;
    if (process)
        ProcessGroup::kill(process);
}
