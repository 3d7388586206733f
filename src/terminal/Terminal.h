#pragma once

#include <QObject>
#include <QPointer>
#include <QProcess>
#include <QStringList>

#include <functional>
#include <memory>

class Utf8ChannelReader;

// Runs one child process at a time for the page-facing execute operations and
// hands its output back as text on the thread that started it.
//
// Standard error is delivered once per run (its first non-empty read); later
// error output is read and dropped. Any read whose text contains the message a
// sandboxed login shell prints when it cannot read the profile is dropped whole.
class Terminal : public QObject
{
public:
    using Handler = std::function<void(const QString &)>;

    Terminal();
    ~Terminal() override;

    // Runs "/bin/bash -cl" on the command followed by each argument after a
    // blank, unquoted, and calls the handler once per chunk of output; never
    // at the end. A start failure is delivered as output.
    void asyncExec(const QString &command, const QStringList &args, Handler action);

    // Runs the program itself with the arguments and, without waiting for it,
    // calls the handler once with all the output when it ends. A program that
    // cannot be started is logged and the handler is not called.
    void asyncExecReturn(const QString &program, const QStringList &args, Handler action);

    // Runs the program to its end, discarding its standard output.
    static void exec(const QString &program, const QStringList &args);

    // Runs the program to its end and answers its standard output ("" when it
    // cannot be started). Standard error is not captured.
    static QString getExec(const QString &program, const QStringList &args);

    // The current process; null once it has ended.
    QProcess *task() const { return currentTask; }
    // What the collecting run has gathered so far.
    QString result() const { return collected; }

    // The line "/bin/bash -cl" is given for a command and its arguments.
    static QString commandLine(const QString &command, const QStringList &args);

private:
    enum class Delivery { Chunks, Collect };

    void start(const QString &program, const QStringList &args, Handler action, Delivery delivery);
    void readChannel(Utf8ChannelReader &reader);
    void receive(const QString &text);
    void launchFailed();
    void finish();

    QPointer<QProcess> currentTask;
    std::unique_ptr<Utf8ChannelReader> outputReader;
    std::unique_ptr<Utf8ChannelReader> errorReader;
    bool errorDelivered = false;
    Delivery delivery = Delivery::Chunks;
    QString collected;
    Handler action;
};
