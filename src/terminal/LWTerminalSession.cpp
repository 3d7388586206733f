#include "terminal/LWTerminalSession.h"

#include "app/LWShell.h"
#include "editor/JavaScriptEscape.h"
#include "extensions/JSONComments.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"
#include "terminal/BackgroundResult.h"
#include "terminal/LWTerm.h"

#include <QCoreApplication>
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

// Evaluates a script in the editor page from the main thread's event loop.
void evaluateLater(const QString &script)
{
    QMetaObject::invokeMethod(
        qApp,
        [script] {
            if (LWShell *shell = LWShell::instance())
                shell->sendToEditor(script);
        },
        Qt::QueuedConnection);
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

    LWTerm::Handler onChunk;
    if (!actionFormat.isEmpty())
        onChunk = [actionFormat](const QString &chunk) { evaluateLater(filledCallback(actionFormat, chunk)); };
    auto onCompleted = [completedFormat](const QString &output) {
        evaluateLater(QStringLiteral("window.setTerminalStdin(false);"));
        if (!completedFormat.isEmpty())
            evaluateLater(filledCallback(completedFormat, output));
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
        current->detach();
    current.reset();
}

bool LWTerminalSession::execRun()
{
    const LWEnvironment *registry = LWEnvironment::shared();
    if (!registry || !registry->runPlugin())
        return false;
    registry->runPlugin()->execute();
    return true;
}
