#include "remote/RemoteFolderTransfers.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellPages.h"
#include "documents/LWDocument.h"
#include "editor/JavaScriptEscape.h"
#include "remote/LWRemote.h"

#include <QDebug>
#include <QFile>
#include <QUrl>

namespace {

// The mapping holds a password: only its owner may read it.
void keepPrivate(const QString &path)
{
    const QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
    if ((QFile::permissions(path) & ~(ownerOnly | QFile::ReadUser | QFile::WriteUser)) == 0)
        return;
    if (QFile::setPermissions(path, ownerOnly))
        qInfo().noquote() << QStringLiteral("%1 is now readable by its owner only").arg(path);
}

// The folder's mapping file, when it has one.
LWDocument::Ptr mappingOf(const LWDocument::Ptr &folder)
{
    for (const LWDocument::Ptr &child : folder->children()) {
        if (child->isFile() && child->label() == RemoteSettings::mappingFileName)
            return child;
    }
    return nullptr;
}

}

RemoteFolderTransfers::RemoteFolderTransfers(ShellPages *pages, ShellStatusBar *statusBar, ShellDialogs *dialogs)
    : pages(pages), dialogs(dialogs), transfers(statusBar)
{
    // A remote replaced by a later action lives on until its transfers end.
    QObject::connect(&transfers, &TransferQueue::idle, &transfers, [this] { retired.clear(); });
}

RemoteFolderTransfers::~RemoteFolderTransfers() = default;

LWRemote *RemoteFolderTransfers::remoteFor(const std::shared_ptr<LWDocument> &folder)
{
    const LWDocument::Ptr mapping = folder ? mappingOf(folder) : nullptr;
    if (!mapping) {
        qWarning().noquote() << QStringLiteral("No remote mapping in %1").arg(folder ? folder->fullPath() : QString());
        return nullptr;
    }
    keepPrivate(mapping->fullPath());
    if (remote)
        retired.push_back(std::move(remote));
    remote = LWRemote::newWithConfig(mapping->getContent(), pages, dialogs, &transfers);
    if (!remote->settings().isTransferable()) {
        dialogs->showAlert(QStringLiteral("The remote mapping is incomplete"),
                           QStringLiteral("Set \"type\" (ftp, ftps, ftpes or sftp) and \"host\" in %1")
                               .arg(mapping->fullPath()));
        return nullptr;
    }
    pages->sendToEditor(QStringLiteral("$Terminal.show();"));
    return remote.get();
}

void RemoteFolderTransfers::upload(const std::shared_ptr<LWDocument> &folder)
{
    if (LWRemote *mapped = remoteFor(folder))
        mapped->uploadDocuments(folder->children(), QString());
}

void RemoteFolderTransfers::download(const std::shared_ptr<LWDocument> &folder)
{
    if (LWRemote *mapped = remoteFor(folder))
        mapped->downloadToPath(folder->fullPath(), QString());
}

void RemoteFolderTransfers::listRemote(const std::shared_ptr<LWDocument> &folder)
{
    LWRemote *mapped = remoteFor(folder);
    if (!mapped)
        return;
    mapped->contentsAtSubpath(
        QString(),
        [this, mapped](const QList<RemoteEntry> &entries) {
            for (const RemoteEntry &entry : entries) {
                const QString line = mapped->relativePath(QUrl(mapped->settings().serverAddress() + entry.path));
                pages->sendToEditor(QStringLiteral("$Terminal.echo('%1');").arg(escapedForJavascript(line)));
            }
        },
        true);
}

void RemoteFolderTransfers::cancelTransfers()
{
    const int dropped = transfers.cancel();
    pages->sendToEditor(QStringLiteral("$Terminal.echo('FTP:: Transfers cancelled, %1 not done');").arg(dropped));
}
