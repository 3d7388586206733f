#include "terminal/Terminal.h"

#include "terminal/BlockingRun.h"
#include "terminal/DetachedRun.h"
#include "terminal/ProcessGroup.h"
#include "terminal/Utf8ChannelReader.h"

#include <QDebug>
#include <QCoreApplication>

#include <utility>

namespace {
const QString profileMessage = QStringLiteral("/etc/profile: Operation not permitted");
}

Terminal::Terminal() = default;

Terminal::~Terminal()
{
    letRunDetached(currentTask);
}

QString Terminal::commandLine(const QString &command, const QStringList &args)
{
    QString line = command;
    for (const QString &argument : args)
        line += QLatin1Char(' ') + argument;
    return line;
}

void Terminal::asyncExec(const QString &command, const QStringList &args, Handler action)
{
    start(QStringLiteral("/bin/bash"), {QStringLiteral("-cl"), commandLine(command, args)},
          std::move(action), Delivery::Chunks);
}

void Terminal::asyncExecReturn(const QString &program, const QStringList &args, Handler action)
{
    start(program, args, std::move(action), Delivery::Collect);
}

void Terminal::start(const QString &program, const QStringList &args, Handler handler,
                     Delivery mode)
{
    // The earlier process, if any, keeps running but no longer reaches us.
    letRunDetached(currentTask);
    action = std::move(handler);
    delivery = mode;
    collected.clear();
    errorDelivered = false;
    outputReader = std::make_unique<Utf8ChannelReader>(QProcess::StandardOutput);
    errorReader = std::make_unique<Utf8ChannelReader>(QProcess::StandardError);

    QProcess *process = new QProcess(this);
    currentTask = process;
    connect(process, &QProcess::readyReadStandardOutput, this, [this] { readChannel(*outputReader); });
    connect(process, &QProcess::readyReadStandardError, this, [this] { readChannel(*errorReader); });
    connect(process, &QProcess::finished, this, &Terminal::finish);
    connect(process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            launchFailed();
    });
    ProcessGroup::start(process, program, args);
}

void Terminal::readChannel(Utf8ChannelReader &reader)
{
    if (!currentTask)
        return;
    qsizetype bytes = 0;
    const QString text = reader.readAvailable(*currentTask, &bytes);
    if (bytes == 0)
        return;
    if (&reader == errorReader.get()) {
        if (errorDelivered)
            return;
        errorDelivered = true;
    }
    receive(text);
}

void Terminal::receive(const QString &text)
{
    if (text.contains(profileMessage))
        return;
    if (delivery == Delivery::Collect)
        collected += text;
    else if (action)
        action(text);
}

void Terminal::launchFailed()
{
    const QString description = currentTask->errorString();
    qWarning().noquote() << QStringLiteral("Terminal: cannot start %1: %2")
                                .arg(currentTask->program(), description);
    if (delivery == Delivery::Chunks)
        receive(description);
    currentTask->deleteLater();
    currentTask = nullptr;
}

void Terminal::finish()
{
    currentTask->deleteLater();
    currentTask = nullptr;
    if (delivery == Delivery::Collect && action) {
        const QString all = std::exchange(collected, QString());
        action(all);
    }
}

void Terminal::exec(const QString &program, const QStringList &args)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    runToExit(process, program, args);
}

QString Terminal::getExec(const QString &program, const QStringList &args)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    if (!runToExit(process, program, args))
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}
