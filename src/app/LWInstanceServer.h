#pragma once

#include "app/LWOpenRequest.h"

#include <QObject>
#include <QSet>

#include <vector>

class QLocalServer;
class QLocalSocket;

// The running editor's end of the local socket: takes the requests of later
// starts of the program and keeps the connection of each start that waits
// until its document has been open and is closed again.
class LWInstanceServer : public QObject
{
    Q_OBJECT

public:
    explicit LWInstanceServer(QObject *parent = nullptr);
    ~LWInstanceServer() override;

    // Listens on the name; a socket file left by an editor that crashed is
    // removed first. False (logged) when listening fails.
    bool listen(const QString &socketName);

    // The documents open now: waiting starts whose document was open and is
    // not any more are let go.
    void updateOpenDocuments(const QStringList &openPaths);

signals:
    void requested(const LWOpenRequest &request);

private:
    struct Waiter
    {
        QLocalSocket *socket;
        QString path;
        bool seenOpen = false;
    };

    void accept();
    void readRequest(QLocalSocket *socket);
    void forget(QLocalSocket *socket);

    QLocalServer *server;
    std::vector<Waiter> waiters;
};
