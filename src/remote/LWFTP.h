#pragma once

#include "remote/RemoteConnection.h"
#include "remote/RemoteSettings.h"

#include <QObject>
#include <QUrl>

#include <memory>

class ShellDialogs;
class ShellPages;
class ShellStatusBar;

// A direct connection to a mapping's server: lists a remote folder into the
// terminal and copies local files to the server with progress in the log.
// Refused logins are retried five times before the user is told.
class LWFTP : public QObject
{
    Q_OBJECT

public:
    LWFTP(ShellPages *pages, ShellStatusBar *statusBar, ShellDialogs *dialogs);

    static std::unique_ptr<LWFTP> connectionWithSettings(const QString &json, ShellPages *pages,
                                                         ShellStatusBar *statusBar, ShellDialogs *dialogs);
    void importSettingsFromJson(const QString &json);

    const RemoteSettings &settings() const { return remote; }
    QUrl baseURL() const { return base; }

    // Shows the entries of base / subpath in the terminal, one line each,
    // then an empty line; the status bar says "FTP: Running..." meanwhile.
    void getListingAtPath(const QString &subpath);
    // Copies the local file at source to the server path target, creating
    // the folders on the way; progress and the outcome go to the log.
    // finished (optional) hears the error text, "" on success.
    void syncItemsFrom(const QString &source, const QString &target,
                       std::function<void(const QString &)> finished = {});
    // The entry's path on the server, as the listing shows it.
    QString presentable(const QString &urlText, const QString &relativePath) const;

private:
    void useSettings(const RemoteSettings &settings);
    void showRunning(bool running);

    ShellPages *pages;
    ShellStatusBar *statusBar;
    ShellDialogs *dialogs;
    RemoteSettings remote;
    QUrl base;
    std::unique_ptr<RemoteConnection> manager;
};
