#include "documents/LWDocumentWatcher.h"

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellRoles.h"
#include "app/roles/ShellStatusBar.h"
#include "documents/LWDocumentManager.h"

#include <QFileInfo>
#include <QPointer>
#include <QtDebug>


LWDocumentWatcher::LWDocumentWatcher(LWDocumentManager &manager)
    : manager(manager), changes(settleMilliseconds, [this](const QSet<QString> &paths) { examineChanges(paths); })
{
    connect(&files, &QFileSystemWatcher::fileChanged, &changes, &SettlingChanges::note);
}

void LWDocumentWatcher::watch(const LWDocument::Ptr &document)
{
    if (!document || document->isUntitled() || !document->isFile())
        return;
    const QString path = document->fullPath();
    documents[path] = document;
    if (!files.files().contains(path) && document->diskStamp().exists)
        files.addPath(path);
}

void LWDocumentWatcher::examineChanges(const QSet<QString> &paths)
{
    for (const QString &path : paths) {
        const auto found = documents.find(path);
        const LWDocument::Ptr document = found == documents.end() ? nullptr : found->second.lock();
        if (!document || document->fullPath() != path) {
            files.removePath(path);
            documents.erase(path);
            continue;
        }
        // Replacing a file (as many programs save) ends the watch on it.
        if (!files.files().contains(path) && QFileInfo::exists(path))
            files.addPath(path);
        examine(document);
    }
}

void LWDocumentWatcher::examine(const LWDocument::Ptr &document)
{
    const LWDiskStamp now = LWDiskStamp::of(document->fullPath());
    if (now == document->diskStamp())
        return;  // our own save, or a change already dealt with
    if (!now.exists) {
        qInfo().noquote() << QStringLiteral("%1 was removed or renamed on disk").arg(document->fullPath());
        document->setSaved(false);  // saving it again asks first
        if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
            statusBar->setStatusMessage(QStringLiteral("“%1” was removed or renamed on disk").arg(document->label()));
            statusBar->setStatusMessageVisible(true);
        }
        if (ShellOutline *outline = ShellRoles::outline())
            outline->reloadOutline();
        return;
    }
    if (document->saved()) {
        qInfo().noquote() << QStringLiteral("%1 changed on disk; reloaded").arg(document->fullPath());
        manager.reloadFromDisk(document);
        return;
    }
    askKeepOrLoad(document);
}

void LWDocumentWatcher::askKeepOrLoad(const LWDocument::Ptr &document)
{
    ShellDialogs *dialogs = ShellRoles::dialogs();
    if (!dialogs)
        return;
    const LWDiskStamp seen = LWDiskStamp::of(document->fullPath());
    const std::weak_ptr<LWDocument> weak = document;
    const QPointer<LWDocumentWatcher> self(this);
    dialogs->showChoice(QStringLiteral("“%1” changed on disk").arg(document->label()),
                      QStringLiteral("Another program changed the file while it has unsaved changes here. "
                                     "Keep your version, or load the file and lose your changes?"),
                      QStringLiteral("Keep Mine"), QStringLiteral("Load Theirs"), [self, weak, seen](int keepMine) {
                          const LWDocument::Ptr document = weak.lock();
                          if (!document || !self)
                              return;
                          if (keepMine)
                              document->noteDiskStamp(seen);  // saving will not ask again
                          else
                              self->manager.reloadFromDisk(document);
                      });
}
