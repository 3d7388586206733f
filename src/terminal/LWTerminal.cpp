#include "terminal/LWTerminal.h"

#include "app/LWPaths.h"
#include "terminal/BlockingRun.h"
#include "terminal/ChildEnvironment.h"
#include "terminal/Utf8ChannelReader.h"

#include <QDebug>
#include <QProcess>
#include <QThreadPool>

#include <memory>

namespace {
const QString envProgram = QStringLiteral("/usr/bin/env");

// Per-run state of the asynchronous form, alive as long as its process.
struct StreamingRun
{
    Utf8ChannelReader output{QProcess::StandardOutput};
    Utf8ChannelReader error{QProcess::StandardError};
    QString collected;
};
}

QString LWTerminal::outputAndError(const QString &program, const QStringList &args,
                                   const QProcessEnvironment *environment)
{
    QProcess process;
    if (environment)
        process.setProcessEnvironment(*environment);
    if (!runToExit(process, program, args))
        return QString();
    const QByteArray output = process.readAllStandardOutput();
    return QString::fromUtf8(output + process.readAllStandardError());
}

QString LWTerminal::getPath()
{
    return outputAndError(QStringLiteral("/bin/bash"),
                          {QStringLiteral("-l"), LWPaths::resourcePath(QStringLiteral("getpath.sh"))});
}

QString LWTerminal::getPwd()
{
    return outputAndError(envProgram, {QStringLiteral("PWD")});
}

QString LWTerminal::exec(const QStringList &args, const QVariantMap &environment)
{
    const QProcessEnvironment childEnvironment = ChildEnvironment::withLoginPath(environment);
    return outputAndError(envProgram, args, &childEnvironment);
}

QString LWTerminal::exec(const QStringList &args, const QVariantMap &environment, Handler action,
                         Handler completed)
{
    auto *process = new QProcess;
    auto run = std::make_shared<StreamingRun>();
    process->setProcessEnvironment(ChildEnvironment::withLoginPath(environment));

    auto deliver = [process, run, action](Utf8ChannelReader &reader) {
        const QString chunk = reader.readAvailable(*process);
        if (action)
            action(chunk);
        run->collected += chunk;
    };
    QObject::connect(process, &QProcess::readyReadStandardOutput, process,
                     [run, deliver] { deliver(run->output); });
    QObject::connect(process, &QProcess::readyReadStandardError, process,
                     [run, deliver] { deliver(run->error); });
    // Ends the run once: after the child exits, or at once when it cannot start.
    auto finish = [process, run, completed] {
        if (completed)
            completed(run->collected);
        QObject::disconnect(process, nullptr, nullptr, nullptr);
        process->deleteLater();
    };
    QObject::connect(process, &QProcess::finished, process, finish);
    QObject::connect(process, &QProcess::errorOccurred, process, [process, finish](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        qWarning().noquote() << QStringLiteral("Cannot start %1: %2").arg(envProgram, process->errorString());
        finish();
    });
    process->start(envProgram, args);
    return QString();
}

QString LWTerminal::exec(const QStringList &args, Handler action, Handler completed)
{
    return exec(args, QVariantMap(), std::move(action), std::move(completed));
}

QString LWTerminal::compile(const QString &program, const QStringList &options,
                            const QString &script, const QString &data)
{
    return exec(QStringList{program} + options + QStringList{LWPaths::resourcePath(script), data});
}

QString LWTerminal::php(const QString &script, const QString &data)
{
    return compile(QStringLiteral("php"), {QStringLiteral("-f")}, script, data);
}

QString LWTerminal::python(const QString &script, const QString &data)
{
    return compile(QStringLiteral("php"), {}, script, data);
}

QString LWTerminal::ruby(const QString &script, const QString &data)
{
    return compile(QStringLiteral("ruby"), {}, script, data);
}

void LWTerminal::php(const QString &script, const QString &data, Handler action)
{
    QThreadPool::globalInstance()->start([script, data, action] { action(php(script, data)); });
}

void LWTerminal::python(const QString &script, const QString &data, Handler action)
{
    php(script, data, std::move(action));
}

void LWTerminal::ruby(const QString &script, const QString &data, Handler action)
{
    php(script, data, std::move(action));
}
