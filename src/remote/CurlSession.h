#pragma once

#include "remote/RemoteSettings.h"

#include <QString>

#include <functional>

// One libcurl connection to the server of a mapping, reused for every
// request made through it. Requests block: use it on a worker thread only.
class CurlSession
{
public:
    struct Result
    {
        bool ok = false;
        // The server refused the user name and password (or key).
        bool loginRefused = false;
        QString error;
        QString body;
    };
    // Bytes sent now, bytes sent so far, bytes to send.
    using Progress = std::function<void(qint64, qint64, qint64)>;

    explicit CurlSession(const RemoteSettings &settings);
    ~CurlSession();
    CurlSession(const CurlSession &) = delete;
    CurlSession &operator=(const CurlSession &) = delete;

    // The long listing of a folder.
    Result list(const QString &serverPath);
    // Uploads a local file, creating the missing folders on the way.
    Result upload(const QString &localPath, const QString &serverPath, const Progress &progress);

private:
    void prepare(const QString &address);
    Result perform();

    RemoteSettings settings;
    void *handle;
    QByteArray body;
    char errorText[256] = {};
};
