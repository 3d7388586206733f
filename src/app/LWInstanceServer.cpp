#include "app/LWInstanceServer.h"

#include <QLocalServer>
#include <QLocalSocket>

#include <algorithm>

namespace {

constexpr qint64 longestRequest = 1 << 20;

}

LWInstanceServer::LWInstanceServer(QObject *parent) : QObject(parent), server(new QLocalServer(this))
{
    server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server, &QLocalServer::newConnection, this, &LWInstanceServer::accept);
}

LWInstanceServer::~LWInstanceServer()
{
    for (const Waiter &waiter : waiters)
        waiter.socket->disconnectFromServer();
}

bool LWInstanceServer::listen(const QString &socketName)
{
    // Only called when no editor answered on the name, so a file there is stale.
    QLocalServer::removeServer(socketName);
    if (server->listen(socketName))
        return true;
    qWarning("Cannot take requests from later starts on %s: %s", qPrintable(socketName),
             qPrintable(server->errorString()));
    return false;
}

void LWInstanceServer::accept()
{
    while (QLocalSocket *socket = server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(socket); });
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] { forget(socket); });
    }
}

void LWInstanceServer::readRequest(QLocalSocket *socket)
{
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > longestRequest) {
            qWarning("A request from a later start was too long; ignored");
            socket->abort();
        }
        return;
    }
    const std::optional<LWOpenRequest> request = LWOpenRequest::fromJsonLine(socket->readLine(longestRequest));
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    if (!request) {
        qWarning("A later start sent a request that is not understood; ignored");
        socket->disconnectFromServer();
        return;
    }
    // A start that does not wait (or has no document to wait for) is let go at once.
    if (request->wait && !request->paths.isEmpty())
        waiters.push_back({socket, request->paths.first()});
    else
        socket->disconnectFromServer();
    emit requested(*request);
}

void LWInstanceServer::updateOpenDocuments(const QStringList &openPaths)
{
    std::vector<QLocalSocket *> released;
    for (Waiter &waiter : waiters) {
        const bool open = openPaths.contains(waiter.path);
        if (waiter.seenOpen && !open)
            released.push_back(waiter.socket);
        waiter.seenOpen = waiter.seenOpen || open;
    }
    for (QLocalSocket *socket : released) {
        forget(socket);
        socket->disconnectFromServer();
    }
}

void LWInstanceServer::forget(QLocalSocket *socket)
{
    waiters.erase(std::remove_if(waiters.begin(), waiters.end(),
                                 [socket](const Waiter &waiter) { return waiter.socket == socket; }),
                  waiters.end());
    socket->deleteLater();
}
