#include "remote/RemoteConnection.h"

#include <QCoreApplication>
#include <QDebug>
#include <QPointer>
#include <QThreadPool>

#include <memory>

namespace {

// Queues work to the main thread, where the connection may have gone since.
void deliver(std::function<void()> work)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

// The folder's entries, each folder followed by its own when recursive.
CurlSession::Result listInto(CurlSession &session, const QString &serverPath, bool recursive,
                             QList<RemoteEntry> &entries)
{
    CurlSession::Result result = session.list(serverPath);
    if (!result.ok)
        return result;
    for (const RemoteEntry &entry : RemoteEntry::fromLongListing(result.body, serverPath)) {
        entries.append(entry);
        if (recursive && entry.folder) {
            const CurlSession::Result inner = listInto(session, entry.path, true, entries);
            if (!inner.ok)
                return inner;
        }
    }
    return result;
}

}

RemoteConnection::RemoteConnection(const RemoteSettings &settings, int failureLimit, std::function<void()> refused)
    : settings(settings), failureLimit(failureLimit), refused(std::move(refused))
{
}

void RemoteConnection::run(Request request, std::function<void(const CurlSession::Result &)> answered)
{
    QPointer<RemoteConnection> self(this);
    QThreadPool::globalInstance()->start([self, request = std::move(request), answered = std::move(answered),
                                          settings = settings, limit = failureLimit] {
        CurlSession session(settings);
        CurlSession::Result result = request(session);
        for (int failures = 1; result.loginRefused; ++failures) {
            qInfo().noquote() << QStringLiteral("Received challenge : %1").arg(settings.serverAddress());
            qInfo().noquote() << QStringLiteral("Previous Failurs : %1").arg(failures);
            if (failures > limit) {
                deliver([self] {
                    if (self && self->refused)
                        self->refused();
                });
                return;
            }
            result = request(session);
        }
        deliver([self, answered, result] {
            if (self)
                answered(result);
        });
    });
}

void RemoteConnection::contents(const QString &serverPath, bool recursive, Listing done)
{
    auto entries = std::make_shared<QList<RemoteEntry>>();
    run([serverPath, recursive, entries](CurlSession &session) {
            entries->clear();
            return listInto(session, serverPath, recursive, *entries);
        },
        [entries, done = std::move(done)](const CurlSession::Result &result) {
            done(result.ok ? *entries : QList<RemoteEntry>(), result.error);
        });
}

void RemoteConnection::upload(const QString &localPath, const QString &serverPath, CurlSession::Progress progress,
                              Completion done)
{
    run([localPath, serverPath, progress = std::move(progress)](CurlSession &session) {
            return session.upload(localPath, serverPath, progress);
        },
        [done = std::move(done)](const CurlSession::Result &result) { done(result.error); });
}
