#include "terminal/LWTerminalSession.h"

#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"
#include "editor/JavaScriptEscape.h"
#include "extensions/JSONComments.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"
#include "terminal/BackgroundResult.h"
#include "terminal/LWTerm.h"
#include "terminal/OutputCoalescer.h"

#include <QDebug>

namespace {
// The callback script with its first "%@" replaced by the escaped text.
QString filledCallback(const QString &format, const QString &text)
{
    QString script = format;
    const qsizetype slot = script.indexOf(QLatin1String("%@"));
    if (slot >= 0)
        script.replace(slot, 2, escapedForJavascript(text));
    return script;
}

void sendToEditor(const QString &script)
{
    if (ShellPages *pages = ShellRoles::pages())
        pages->sendToEditor(script);
}

// Sends a batch of output to the page through the action script and
// confirms once the page has evaluated it, so that the next batch waits
// for the last.
OutputCoalescer::Deliver pageDelivery(const QString &actionFormat)
{
    return [actionFormat](const QString &batch, const std::function<void()> &delivered) {
        ShellPages *pages = ShellRoles::pages();
        if (!pages || actionFormat.isEmpty()) {
            delivered();
            return;
        }
        pages->evaluateInEditor(filledCallback(actionFormat, batch), [delivered](const QString &) { delivered(); });
    };
}

// A JSON argument of the page when it holds the expected kind of value;
// otherwise logged, and an invalid value.
QVariant pageArgument(const QString &json, int expectedType, const QString &role)
{
    const QVariant parsed = JSONComments::JSONObjectWithCommentedString(json);
    if (parsed.typeId() == expectedType)
        return parsed;
    qWarning().noquote() << QStringLiteral("terminalExec: %1 is not valid JSON of the expected kind: %2").arg(role, json);
    return QVariant();
}

QVariantMap environmentEntries(const QString &environmentJSON)
{
    if (environmentJSON.isEmpty())
        return {};
    return pageArgument(environmentJSON, QMetaType::QVariantMap, QStringLiteral("environment object")).toMap();
}

QStringList plainWords(const QVariantList &words)
{
    QStringList plain;
    for (const QVariant &word : words)
        plain.append(word.toString());
    return plain;
}
}

QFuture<QString> LWTerminalSession::terminalExec(const QString &commandJSON, const QString &environmentJSON,
                                        const QString &actionFormat, const QString &completedFormat)
{
    const QVariantList words =
        pageArgument(commandJSON, QMetaType::QVariantList, QStringLiteral("command array")).toList();
    const QVariantMap environment = environmentEntries(environmentJSON);
    if (current)
        terminalKill();
    if (actionFormat.isEmpty() && completedFormat.isEmpty())
        return BackgroundResult::run([args = plainWords(words), environment] { return LWTerm::exec(args, environment); });

    output = OutputCoalescer::create(PendingOutputLimit, pageDelivery(actionFormat));
    auto onChunk = [output = output](const QString &chunk) { output->append(chunk); };
    auto onCompleted = [output = output, completedFormat](const QString &all) {
        output->finish([completedFormat, all] {
            sendToEditor(QStringLiteral("window.setTerminalStdin(false);"));
            if (!completedFormat.isEmpty())
                sendToEditor(filledCallback(completedFormat, all));
        });
    };
    current = LWTerm::create();
    return BackgroundResult::ready(current->exec(words, environment, onChunk, onCompleted));
}

void LWTerminalSession::terminalWrite(const QString &text)
{
    QString reason;
    if (!current || !current->writeInput(text, &reason))
        qWarning().noquote() << QStringLiteral("terminalWrite:: Exception: %1")
                                    .arg(current ? reason : QStringLiteral("no session"));
}

void LWTerminalSession::terminalKill()
{
    if (current)
        current->stop();
    if (output)
        output->cancel();
    current.reset();
    output.reset();
}

bool LWTerminalSession::execRun()
{
    const LWEnvironment *registry = LWEnvironment::shared();
    if (!registry || !registry->runPlugin())
        return false;
    registry->runPlugin()->execute();
    return true;
}
