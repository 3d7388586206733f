#include "app/LWPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace LWPaths {

bool isSandboxed()
{
    return qEnvironmentVariableIsSet("APP_SANDBOX_CONTAINER_ID");
}

QString dataRoot()
{
    if (isSandboxed())
        return QDir::homePath();
    QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    if (dataHome.isEmpty() || QDir::isRelativePath(dataHome))
        dataHome = QDir::homePath() + QStringLiteral("/.local/share");
    return QDir::cleanPath(dataHome + QStringLiteral("/Larkwood"));
}

QString dataPath(const QString &relative)
{
    return dataRoot() + QLatin1Char('/') + relative;
}

QString resourceFolder()
{
    const QString overridden = qEnvironmentVariable("LARKWOOD_RESOURCES");
    if (!overridden.isEmpty())
        return QDir::cleanPath(overridden);
    return QDir::cleanPath(QCoreApplication::applicationDirPath()
                           + QStringLiteral("/../share/larkwood"));
}

QString resourcePath(const QString &relative)
{
    return resourceFolder() + QLatin1Char('/') + relative;
}

int buildNumber()
{
    return LARKWOOD_BUILD_NUMBER;
}

}
