#include "remote/LWFTP.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellStatusBar.h"
#include "editor/JavaScriptEscape.h"

#include <QDebug>

namespace {
// Stored credentials are offered five times before the user is told.
constexpr int ftpFailureLimit = 4;
}

LWFTP::LWFTP(ShellPages *pages, ShellStatusBar *statusBar, ShellDialogs *dialogs)
    : pages(pages), statusBar(statusBar), dialogs(dialogs)
{
    qInfo().noquote() << QStringLiteral("Creating new LWFTP");
    useSettings(RemoteSettings());
}

std::unique_ptr<LWFTP> LWFTP::connectionWithSettings(const QString &json, ShellPages *pages,
                                                     ShellStatusBar *statusBar, ShellDialogs *dialogs)
{
    auto connection = std::make_unique<LWFTP>(pages, statusBar, dialogs);
    connection->importSettingsFromJson(json);
    return connection;
}

void LWFTP::importSettingsFromJson(const QString &json)
{
    useSettings(RemoteSettings::fromJson(json));
}

void LWFTP::useSettings(const RemoteSettings &settings)
{
    remote = settings;
    base = QUrl(remote.baseAddress());
    manager = std::make_unique<RemoteConnection>(remote, ftpFailureLimit, [this] {
        showRunning(false);
        dialogs->showAlert(QStringLiteral("FTP connection failed"),
                           QStringLiteral("Please make sure your credentials are correct"));
    });
}

void LWFTP::showRunning(bool running)
{
    statusBar->setStatusMessage(running ? QStringLiteral("FTP: Running...") : QString());
    statusBar->setStatusMessageVisible(running);
    statusBar->setStatusSpinnerVisible(running);
    statusBar->setStatusSpinnerRunning(running);
}

void LWFTP::getListingAtPath(const QString &subpath)
{
    showRunning(true);
    pages->sendToEditor(QStringLiteral("$Terminal.show();"));
    pages->sendToEditor(
        QStringLiteral("$Terminal.echo('FTP:: Getting contents at path: %1');").arg(escapedForJavascript(subpath)));
    manager->contents(RemoteSettings::joined({remote.path, subpath}), false,
                      [this](const QList<RemoteEntry> &entries, const QString &error) {
                          if (!error.isEmpty())
                              qWarning().noquote() << QStringLiteral("FTP listing failed: %1").arg(error);
                          for (const RemoteEntry &entry : entries) {
                              const QString line = presentable(remote.serverAddress() + entry.path, entry.path);
                              pages->sendToEditor(
                                  QStringLiteral("$Terminal.echo('%1');").arg(escapedForJavascript(line)));
                          }
                          pages->sendToEditor(QStringLiteral("$Terminal.echo();"));
                          showRunning(false);
                      });
}

QString LWFTP::presentable(const QString &urlText, const QString &) const
{
    QString text = urlText;
    const QString prefix = QStringLiteral("%1://%2:%3/%4").arg(remote.type, remote.host, remote.port, QString());
    if (text.startsWith(prefix))
        text.remove(0, prefix.size());
    return text;
}

void LWFTP::syncItemsFrom(const QString &source, const QString &target, std::function<void(const QString &)> finished)
{
    const QString from = QUrl::fromLocalFile(source).toString();
    const QString to = remote.serverAddress() + RemoteSettings::joined({target});
    qInfo().noquote() << QStringLiteral("\nFROM: %1\nTO: %2").arg(from, to);
    manager->upload(
        source, RemoteSettings::joined({target}),
        [](qint64 sent, qint64 total, qint64 expected) {
            qInfo().noquote() << QStringLiteral("prog: %1 - %2 - %3").arg(sent).arg(total).arg(expected);
        },
        [finished = std::move(finished)](const QString &error) {
            if (!error.isEmpty())
                qWarning().noquote() << error;
            qInfo().noquote() << QStringLiteral("completed");
            if (finished)
                finished(error);
        });
}
