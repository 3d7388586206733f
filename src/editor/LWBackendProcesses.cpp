#include "editor/LWBackend.h"

#include "editor/PageCall.h"

#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellRoles.h"
#include "editor/CallbackFormat.h"
#include "editor/EditorCommand.h"
#include "editor/JavaScriptEscape.h"
#include "extensions/JSONComments.h"
#include "terminal/BackgroundResult.h"
#include "terminal/LWTerminal.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

namespace {

QStringList parsedWords(const QString &json)
{
    const QVariant parsed = JSONComments::JSONObjectWithCommentedString(json);
    if (parsed.typeId() != QMetaType::QVariantList) {
        qWarning("The arguments %s are not a JSON array; running with none", qPrintable(json.left(80)));
        return {};
    }
    return parsed.toStringList();
}

QVariantMap parsedEnvironment(const QString &json)
{
    const QVariant parsed = JSONComments::JSONObjectWithCommentedString(json);
    if (parsed.typeId() != QMetaType::QVariantMap) {
        qWarning("The environment %s is not a JSON object; running with none", qPrintable(json.left(80)));
        return {};
    }
    return parsed.toMap();
}

void setRunning(bool running)
{
    if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
        statusBar->setStatusMessage(running ? QStringLiteral("Running...") : QString());
        statusBar->setStatusSpinnerRunning(running);
    }
}

}

void LWBackend::execute_args_(const QString &command, const QString &argsJSON)
{
    const PageCall call;
    setRunning(true);
    terminal.asyncExec(command, parsedWords(argsJSON), [](const QString &chunk) {
        EditorCommand::send(QStringLiteral("lw.echo('%1');").arg(escapedForJavascript(chunk)));
        setRunning(false);
    });
}

void LWBackend::execute_args_callback_(const QString &program, const QString &argsJSON, const QString &callback)
{
    const PageCall call;
    setRunning(true);
    terminal.asyncExecReturn(program, parsedWords(argsJSON), [callback](const QString &output) {
        const QString outputs = QString::fromUtf8(QJsonDocument(QJsonArray{output}).toJson(QJsonDocument::Compact));
        EditorCommand::send(CallbackFormat::filled(callback, outputs));
        setRunning(false);
    });
}

QFuture<QString> LWBackend::exec_(const QString &argsJSON)
{
    const PageCall call;
    return BackgroundResult::run([args = parsedWords(argsJSON)] { return LWTerminal::exec(args); });
}

QFuture<QString> LWBackend::exec_env_(const QString &argsJSON, const QString &environmentJSON)
{
    const PageCall call;
    return BackgroundResult::run([args = parsedWords(argsJSON), environment = parsedEnvironment(environmentJSON)] {
        return LWTerminal::exec(args, environment);
    });
}

QString LWBackend::execApplescript_(const QString &path)
{
    const PageCall call;
    qInfo("path: %s", qPrintable(path));
    const QString runner = QStandardPaths::findExecutable(QStringLiteral("osascript"));
    if (runner.isEmpty() || !QFileInfo(path).isFile()) {
        qWarning("error: no AppleScript runner for %s", qPrintable(path));
        return QString();
    }
    QString result = Terminal::getExec(runner, {path});
    result.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    qInfo("result = %s", qPrintable(result));
    return result;
}

QFuture<QString> LWBackend::terminalExec_env_action_completed_(const QString &commandJSON, const QString &environmentJSON,
                                                      const QString &action, const QString &completed)
{
    const PageCall call;
    return session.terminalExec(commandJSON, environmentJSON, action, completed);
}

void LWBackend::terminalWrite_(const QString &text)
{
    const PageCall call;
    session.terminalWrite(text);
}

void LWBackend::terminalKill()
{
    const PageCall call;
    session.terminalKill();
}

bool LWBackend::execRun()
{
    const PageCall call;
    return LWTerminalSession::execRun();
}
