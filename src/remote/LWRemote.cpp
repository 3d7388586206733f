#include "remote/LWRemote.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellPages.h"
#include "editor/JavaScriptEscape.h"
#include "remote/TransferQueue.h"

#include <QDebug>
#include <QFileInfo>

#include <cstdio>

namespace {
// Stored credentials are offered three times before the user is told.
constexpr int remoteFailureLimit = 2;

bool looksLikeFolder(const QString &name)
{
    return QFileInfo(name).suffix().isEmpty();
}
}

LWRemote::LWRemote(const RemoteSettings &settings, ShellPages *pages, ShellDialogs *dialogs, TransferQueue *transfers)
    : remote(settings),
      pages(pages),
      dialogs(dialogs),
      transfers(transfers),
      manager(settings, remoteFailureLimit, [dialogs] {
          dialogs->showAlert(QStringLiteral("Remote connection failed"),
                             QStringLiteral("Please make sure your credentials are correct"));
      })
{
}

std::unique_ptr<LWRemote> LWRemote::newWithConfig(const QString &json, ShellPages *pages, ShellDialogs *dialogs,
                                                  TransferQueue *transfers)
{
    return std::make_unique<LWRemote>(RemoteSettings::fromJson(json), pages, dialogs, transfers);
}

QString LWRemote::relativePath(const QUrl &url) const
{
    QString path = url.path();
    const QString base = QLatin1Char('/') + remote.path;
    if (remote.path.isEmpty())
        return path.mid(1);
    if (path.startsWith(base + QLatin1Char('/')))
        return path.mid(base.size() + 1);
    return path.replace(QStringLiteral("//"), QStringLiteral("/"));
}

void LWRemote::echo(const QString &line)
{
    pages->sendToEditor(QStringLiteral("$Terminal.echo('%1');").arg(escapedForJavascript(line)));
}

void LWRemote::transfer(const QString &mode, const QString &remotePath, const QString &localPath,
                        std::function<void()> afterSuccess)
{
    transfers->add({mode, remote.transferScriptSettings(), remotePath, localPath, remote.password,
                    [this, localPath, afterSuccess = std::move(afterSuccess)](bool succeeded, const QString &message) {
                        if (!succeeded) {
                            echo(QStringLiteral("&#10008; %1 : %2").arg(localPath, message));
                            return;
                        }
                        echo(QStringLiteral("&#10004; %1").arg(localPath));
                        if (afterSuccess)
                            afterSuccess();
                    }});
}

void LWRemote::uploadDocuments(const LWDocument::List &documents, const QString &subpath)
{
    qInfo().noquote() << QStringLiteral("Uploading at subpath: %1").arg(subpath);
    for (const LWDocument::Ptr &document : documents) {
        if (remote.isExcluded(document->label()) || document->isUntitled())
            continue;
        const QString remotePath = RemoteSettings::joined({remote.path, subpath, document->label()});
        const QString localPath = document->fullPath();
        std::printf("Copy  : %s\nTo--> %s\n\n", qPrintable(localPath), qPrintable(remotePath));
        std::fflush(stdout);
        if (!document->isFolder()) {
            transfer(QStringLiteral("uf"), remotePath, localPath, {});
            continue;
        }
        const QString innerSubpath = RemoteSettings::joined({subpath, document->label()});
        transfer(QStringLiteral("ud"), remotePath, localPath, [this, document, innerSubpath] {
            uploadDocuments(document->children(), innerSubpath);
        });
    }
}

void LWRemote::downloadDocuments(const QList<RemoteEntry> &entries, const QString &subpath)
{
    for (const RemoteEntry &entry : entries) {
        if (remote.isExcluded(entry.name()))
            continue;
        const QString innerSubpath = RemoteSettings::joined({subpath, entry.name()});
        const QString localPath = QLatin1Char('/') + RemoteSettings::joined({targetFolder, innerSubpath});
        if (!looksLikeFolder(entry.name())) {
            transfer(QStringLiteral("df"), entry.path, localPath, {});
            continue;
        }
        transfer(QStringLiteral("dd"), entry.path, localPath, [this, innerSubpath] {
            contentsAtSubpath(innerSubpath, [this, innerSubpath](const QList<RemoteEntry> &inner) {
                downloadDocuments(inner, innerSubpath);
            });
        });
    }
}

void LWRemote::downloadToPath(const QString &folder, const QString &subpath)
{
    targetFolder = folder;
    contentsAtSubpath(subpath, [this, subpath](const QList<RemoteEntry> &entries) {
        downloadDocuments(entries, subpath);
    });
}

void LWRemote::contentsAtSubpath(const QString &subpath, Callback callback, bool recursive)
{
    const QString serverPath = RemoteSettings::joined({remote.path, subpath});
    manager.contents(serverPath, recursive,
                     [this, serverPath, callback = std::move(callback)](const QList<RemoteEntry> &entries,
                                                                        const QString &error) {
                         if (!error.isEmpty()) {
                             qWarning().noquote() << QStringLiteral("Listing %1 failed: %2").arg(serverPath, error);
                             echo(QStringLiteral("&#10008; %1 : %2").arg(remote.serverAddress() + serverPath, error));
                             return;
                         }
                         callback(entries);
                     });
}
