#include "extensions/LWEnvironment.h"

namespace {
LWEnvironment *sharedEnvironment = nullptr;
}

LWEnvironment *LWEnvironment::shared()
{
    return sharedEnvironment;
}

void LWEnvironment::setShared(LWEnvironment *environment)
{
    sharedEnvironment = environment;
}

QString LWEnvironment::envPath() const
{
    QMutexLocker locker(&lock);
    return envPathValue;
}

void LWEnvironment::setEnvPath(const QString &path)
{
    QMutexLocker locker(&lock);
    envPathValue = path;
}

QString LWEnvironment::pwd() const
{
    QMutexLocker locker(&lock);
    return pwdValue;
}

void LWEnvironment::setPwd(const QString &folder)
{
    QMutexLocker locker(&lock);
    pwdValue = folder;
}
