#include "remote/TransferQueue.h"

#include "app/LWPaths.h"
#include "app/roles/ShellStatusBar.h"
#include "terminal/ChildEnvironment.h"

#include <QDebug>
#include <QProcess>
#include <QRegularExpression>

namespace {
const QString passwordVariable = QStringLiteral("LARKWOOD_REMOTE_PASSWORD");

// The script's last line without its "ok: " or "error: " mark.
QString scriptMessage(QProcess *process)
{
    const QString output = QString::fromUtf8(process->readAll()).trimmed();
    if (output.isEmpty())
        return process->errorString();
    static const QRegularExpression mark(QStringLiteral("^(ok|error): "));
    return output.section(QLatin1Char('\n'), -1).remove(mark);
}
}

TransferQueue::TransferQueue(ShellStatusBar *statusBar) : statusBar(statusBar)
{
}

TransferQueue::~TransferQueue()
{
    stopRunning();
}

QStringList TransferQueue::arguments(const Transfer &transfer)
{
    return {QStringLiteral("php"), LWPaths::resourcePath(QStringLiteral("LWRemote.php")), transfer.mode,
            transfer.settings, transfer.remotePath, transfer.localPath};
}

void TransferQueue::add(Transfer transfer)
{
    waiting.push_back(std::move(transfer));
    ++added;
    startWaiting();
    showProgress();
}

void TransferQueue::startWaiting()
{
    while (!waiting.empty() && running.size() < size_t(maximumRunning)) {
        Transfer transfer = std::move(waiting.front());
        waiting.pop_front();
        start(std::move(transfer));
    }
}

void TransferQueue::start(Transfer transfer)
{
    auto *process = new QProcess(this);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setProcessEnvironment(ChildEnvironment::withLoginPath({{passwordVariable, transfer.password}}));
    connect(process, &QProcess::finished, this, [this, process](int exitCode, QProcess::ExitStatus status) {
        finish(process, status == QProcess::NormalExit && exitCode == 0);
    });
    connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finish(process, false);
    });
    const QStringList args = arguments(transfer);
    running.emplace(process, std::move(transfer));
    process->start(QStringLiteral("/usr/bin/env"), args);
}

void TransferQueue::finish(QProcess *process, bool succeeded)
{
    const auto found = running.find(process);
    if (found == running.end())
        return;
    const Transfer transfer = std::move(found->second);
    running.erase(found);
    process->deleteLater();
    const QString message = scriptMessage(process);
    if (!succeeded)
        qWarning().noquote() << QStringLiteral("Transfer %1 of %2 failed: %3")
                                    .arg(transfer.mode, transfer.localPath, message);
    ++done;
    if (transfer.finished)
        transfer.finished(succeeded, message);
    startWaiting();
    showProgress();
}

void TransferQueue::showProgress()
{
    if (isBusy()) {
        statusBar->setStatusMessage(QStringLiteral("FTP: %1 of %2 transfers done").arg(done).arg(added));
        statusBar->setStatusMessageVisible(true);
        statusBar->setStatusSpinnerVisible(true);
        statusBar->setStatusSpinnerRunning(true);
        return;
    }
    statusBar->setStatusMessage(QString());
    statusBar->setStatusMessageVisible(false);
    statusBar->setStatusSpinnerRunning(false);
    statusBar->setStatusSpinnerVisible(false);
    added = done = 0;
    emit idle();
}

void TransferQueue::stopRunning()
{
    for (const auto &[process, transfer] : running) {
        process->disconnect(this);
        QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        // The script removes its unfinished download before it exits.
        process->terminate();
    }
    running.clear();
}

int TransferQueue::cancel()
{
    const int dropped = int(waiting.size() + running.size());
    waiting.clear();
    stopRunning();
    if (dropped > 0)
        showProgress();
    return dropped;
}
