#pragma once

#include "remote/CurlSession.h"
#include "remote/RemoteEntry.h"
#include "remote/RemoteSettings.h"

#include <QObject>

#include <functional>

// Lists folders of a mapping's server and uploads files to it without
// blocking the window: each request runs on a worker thread and its answer
// comes back on the thread that owns this object. A refused login is a
// challenge: the stored credentials are offered again while the number of
// refusals so far is at most the failure limit; after that `refused` is
// called and the request is never answered.
class RemoteConnection : public QObject
{
    Q_OBJECT

public:
    // Entries in listing order (recursive listings put each folder's items
    // right after it); a failed request answers no entries and its reason.
    using Listing = std::function<void(const QList<RemoteEntry> &entries, const QString &error)>;
    using Completion = std::function<void(const QString &error)>;

    RemoteConnection(const RemoteSettings &settings, int failureLimit, std::function<void()> refused);

    void contents(const QString &serverPath, bool recursive, Listing done);
    // progress runs on the worker thread.
    void upload(const QString &localPath, const QString &serverPath, CurlSession::Progress progress,
                Completion done);

private:
    using Request = std::function<CurlSession::Result(CurlSession &)>;
    // Runs request on a worker thread with the challenge rule and hands the
    // answer (unless the login was given up) to answered on this thread.
    void run(Request request, std::function<void(const CurlSession::Result &)> answered);

    RemoteSettings settings;
    int failureLimit;
    std::function<void()> refused;
};
