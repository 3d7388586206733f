#include "app/LWInstanceClient.h"

#include <QLocalSocket>

namespace LWInstanceClient {

namespace {

constexpr int connectTimeoutMs = 1000;
constexpr int writeTimeoutMs = 5000;

}

bool forward(const QString &socketName, const LWOpenRequest &request)
{
    QLocalSocket socket;
    socket.connectToServer(socketName);
    if (!socket.waitForConnected(connectTimeoutMs))
        return false;
    socket.write(request.toJsonLine());
    if (!socket.waitForBytesWritten(writeTimeoutMs)) {
        qWarning("The running editor did not take the request: %s", qPrintable(socket.errorString()));
        return false;
    }
    if (request.wait) {
        // The editor closes the connection when the document is closed or it quits.
        while (socket.state() == QLocalSocket::ConnectedState)
            socket.waitForDisconnected(-1);
    } else {
        socket.disconnectFromServer();
    }
    return true;
}

}
