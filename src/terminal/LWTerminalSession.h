#pragma once

#include <QFuture>
#include <QString>

#include <memory>

class LWTerm;
class OutputCoalescer;

// The terminal pane's side of the backend: runs the page's commands as shell
// sessions whose output is handed to the page's callback scripts (batched,
// one script in flight at a time), writes the page's input to the running
// session and kills it on request. At most one session is current.
class LWTerminalSession
{
public:
    // commandJSON: a JSON array of words; environmentJSON: a JSON object or
    // "". actionFormat and completedFormat are scripts with one "%@" for the
    // escaped output ("" for none). With a callback, starts a session (the
    // current one is killed first) and answers ""; without either, runs the
    // command without a shell on a pool thread and answers its output.
    QFuture<QString> terminalExec(const QString &commandJSON, const QString &environmentJSON,
                         const QString &actionFormat, const QString &completedFormat);

    // Sends the text to the current session's standard input, which is then
    // closed. Failures are only logged.
    void terminalWrite(const QString &text);

    // Kills the current session's process group; nothing more of it reaches
    // the page.
    void terminalKill();

    // Runs the plugin bound to the run button, if any.
    static bool execRun();

    // The current session; null when none.
    LWTerm *termTask() const { return current.get(); }

    // Output waiting for the page beyond this many characters is dropped,
    // oldest first, with a note. The console shows less than this of a
    // flood anyway, so more would only cost escaping and evaluating.
    static constexpr qsizetype PendingOutputLimit = 64 * 1024;

private:
    std::shared_ptr<LWTerm> current;
    std::shared_ptr<OutputCoalescer> output;
};
