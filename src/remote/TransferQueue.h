#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <deque>
#include <functional>
#include <map>

class QProcess;
class ShellStatusBar;

// Runs the transfer script "LWRemote.php" once per file or folder, at most
// four runs at a time, in the order the transfers were added. The status bar
// shows how many are done while any is waiting or running.
class TransferQueue : public QObject
{
    Q_OBJECT

public:
    // The script's mode ("uf", "ud", "df", "dd"), its settings text, the two
    // paths and the password, which reaches the script through its
    // environment, never its arguments.
    struct Transfer
    {
        QString mode;
        QString settings;
        QString remotePath;
        QString localPath;
        QString password;
        // Called when the run ends: whether it succeeded, and the script's
        // message (the server's reason on failure).
        std::function<void(bool succeeded, const QString &message)> finished;
    };

    static constexpr int maximumRunning = 4;

    explicit TransferQueue(ShellStatusBar *statusBar);
    ~TransferQueue() override;

    void add(Transfer transfer);
    // Ends the running transfers and drops the waiting ones, whose
    // completions are never called; answers how many were not done.
    int cancel();
    bool isBusy() const { return !waiting.empty() || !running.empty(); }

    // The script's arguments as the process gets them.
    static QStringList arguments(const Transfer &transfer);

signals:
    // Every transfer added has finished or was cancelled.
    void idle();

private:
    void startWaiting();
    void start(Transfer transfer);
    void finish(QProcess *process, bool succeeded);
    void showProgress();
    // Ends the running processes without waiting and without completions.
    void stopRunning();

    ShellStatusBar *statusBar;
    std::deque<Transfer> waiting;
    std::map<QProcess *, Transfer> running;
    int added = 0;
    int done = 0;
};
