#pragma once

#include <QMutex>
#include <QString>

// The extension registry: data root, bundles and the values shared with
// child processes.
class LWEnvironment
{
public:
    LWEnvironment() = default;

    // The registry in use (the application creates one at start); nullptr
    // before that.
    static LWEnvironment *shared();
    static void setShared(LWEnvironment *environment);

    // The login PATH handed to child processes.
    QString envPath() const;
    void setEnvPath(const QString &path);

    // The terminal's working folder; "" until a shell run reports one. Written
    // from process reader threads, hence the lock.
    QString pwd() const;
    void setPwd(const QString &folder);

private:
    mutable QMutex lock;
    QString envPathValue;
    QString pwdValue;
};
