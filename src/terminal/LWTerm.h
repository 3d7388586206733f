#pragma once

#include "terminal/TailBuffer.h"
#include "terminal/Utf8ChannelReader.h"
#include "terminal/WorkingFolderSentinel.h"

#include <QPointer>
#include <QProcess>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>
#include <memory>

// One command of the terminal pane: a fresh login shell running the command
// line in the working folder the previous command ended in, streaming its
// output to a handler. Create it with create(); a run keeps its LWTerm alive
// until the child has ended, even when its creator lets go of it.
class LWTerm : public std::enable_shared_from_this<LWTerm>
{
public:
    using Handler = std::function<void(const QString &)>;

    static std::shared_ptr<LWTerm> create();

    // Each element except null ones, with every double quote preceded by a
    // backslash, wrapped in double quotes. Nothing else is escaped, so "$",
    // backquotes and backslashes keep their meaning to the shell.
    static QStringList sanitizedArgs(const QVariantList &args);

    // The same run as LWTerminal::exec(args, environment): no shell, no
    // working folder.
    static QString exec(const QStringList &args, const QVariantMap &environment = {});

    // Runs the sanitized arguments through "bash --login -c" with the working
    // folder prefix and the folder echo, showing "Running..." meanwhile. The
    // shell leads a process group of its own. Without a folder left by an
    // earlier command it starts in the workspace's folder (see
    // TerminalStartFolder). The child sees only the given environment when
    // it is not empty, else this process's own. `action` gets each chunk of
    // output or error (without the folder echo, possibly ""), `completed` all
    // of it at the end (its last CollectedLimit characters, after a note of
    // what was left out); both run on the calling thread. Answers "" at once.
    QString exec(const QVariantList &args, const QVariantMap &environment, Handler action,
                 Handler completed);

    // The child process; null before a run and once the child has ended.
    QProcess *task() const { return process; }

    // The exit status of the last run once it has ended (already set when
    // the completion handler runs): the command's own status, or -1 when the
    // shell could not start or crashed.
    int exitStatus() const { return lastExitStatus; }

    // Writes the text to the child's standard input and closes it: a run
    // takes one write. Answers false, with the reason, when there is no
    // running child or its input is already closed.
    bool writeInput(const QString &text, QString *reason);

    // Kills the child's whole process group (the shell, its pipelines and
    // background jobs). Neither handler runs any more.
    void stop();

    static constexpr qsizetype CollectedLimit = 8 * 1024 * 1024;

private:
    LWTerm() = default;

    void readChannel(Utf8ChannelReader &reader);
    void finish(int status);

    QPointer<QProcess> process;
    Utf8ChannelReader outputReader{QProcess::StandardOutput};
    Utf8ChannelReader errorReader{QProcess::StandardError};
    WorkingFolderSentinel sentinel;
    TailBuffer collected{CollectedLimit};
    bool inputClosed = false;
    int lastExitStatus = -1;
    Handler action;
    Handler completed;
};
