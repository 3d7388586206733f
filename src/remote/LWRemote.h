#pragma once

#include "documents/LWDocument.h"
#include "remote/RemoteConnection.h"
#include "remote/RemoteEntry.h"
#include "remote/RemoteSettings.h"

#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>

class ShellDialogs;
class ShellPages;
class TransferQueue;

// A workspace folder's remote mapping in use: uploads documents and
// downloads listing entries one transfer-script run per entry, folders one
// level at a time, and lists the remote folders through its connection.
// Every finished entry gets a line in the terminal: a check mark and its
// path, or a cross, its path and the reason it failed. Names the mapping
// excludes are neither uploaded nor downloaded.
class LWRemote : public QObject
{
    Q_OBJECT

public:
    using Callback = std::function<void(const QList<RemoteEntry> &entries)>;

    LWRemote(const RemoteSettings &settings, ShellPages *pages, ShellDialogs *dialogs, TransferQueue *transfers);

    static std::unique_ptr<LWRemote> newWithConfig(const QString &json, ShellPages *pages, ShellDialogs *dialogs,
                                                   TransferQueue *transfers);

    const RemoteSettings &settings() const { return remote; }

    // The URL's path relative to the base folder: without the base folder
    // and the "/" after it when it starts with them, else with every "//"
    // made "/".
    QString relativePath(const QUrl &url) const;

    // Uploads to base / subpath / label; a folder's children follow once the
    // folder exists on the server.
    void uploadDocuments(const LWDocument::List &documents, const QString &subpath);
    // Downloads to the target folder / subpath / name; a name without an
    // extension is a folder, listed and downloaded into once it exists.
    void downloadDocuments(const QList<RemoteEntry> &entries, const QString &subpath);
    // Lists base / subpath and downloads what it finds into folder / subpath.
    void downloadToPath(const QString &folder, const QString &subpath);
    // The entries of base / subpath. A failed listing says why in the terminal
    // and calls nothing.
    void contentsAtSubpath(const QString &subpath, Callback callback, bool recursive = false);

private:
    void transfer(const QString &mode, const QString &remotePath, const QString &localPath,
                  std::function<void()> afterSuccess);
    void echo(const QString &line);

    RemoteSettings remote;
    ShellPages *pages;
    ShellDialogs *dialogs;
    TransferQueue *transfers;
    RemoteConnection manager;
    QString targetFolder;
};
