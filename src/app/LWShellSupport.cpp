#include "app/LWShellSupport.h"

#include "app/LWDefaults.h"
#include "app/LWPaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

const QString installedKey = QStringLiteral("LW_ShellInstalled");
const QString launcherPath = QStringLiteral("Data/bin/lwood");

void noteAttempt(bool installed)
{
    LWDefaults::shared()->setBool(installedKey, installed);
    LWDefaults::shared()->synchronize();
}

bool folderIsOnPath(const QString &folder)
{
    const QStringList entries = qEnvironmentVariable("PATH").split(QLatin1Char(':'));
    return std::any_of(entries.begin(), entries.end(),
                       [&](const QString &entry) { return QDir::cleanPath(entry) == QDir::cleanPath(folder); });
}

// Empty on success, else why the copy failed.
QString copyLauncher();
LWShellSupport::Report installedReport();

}

namespace LWShellSupport {

QString source()
{
    const QString inDataTree = LWPaths::dataPath(launcherPath);
    return QFile::exists(inDataTree) ? inDataTree : LWPaths::resourcePath(launcherPath);
}

QString target()
{
    return QDir::homePath() + QStringLiteral("/.local/bin/lwood");
}

void noteInstalledState()
{
    noteAttempt(QFileInfo::exists(target()));
}

Report install()
{
    if (QFileInfo::exists(target())) {
        qInfo("lwood : %s exists and is left in place", qUtf8Printable(target()));
        noteAttempt(true);
        return {QStringLiteral("lwood is already installed"),
                QStringLiteral("%1 exists and was left as it is. Remove it first to install this version of the "
                               "launcher.")
                    .arg(target())};
    }
    const QString failure = copyLauncher();
    noteAttempt(true);
    if (!failure.isEmpty()) {
        qWarning("lwood : could not install %s: %s", qUtf8Printable(target()), qUtf8Printable(failure));
        return {QStringLiteral("Could not install lwood"), failure};
    }
    qInfo("lwood : installed %s", qUtf8Printable(target()));
    return installedReport();
}

}

namespace {

QString copyLauncher()
{
    using LWShellSupport::source;
    using LWShellSupport::target;
    const QString from = source();
    if (!QFileInfo::exists(from))
        return QStringLiteral("The launcher %1 is missing from the installation.").arg(from);
    const QString folder = QFileInfo(target()).absolutePath();
    if (!QDir().mkpath(folder))
        return QStringLiteral("The folder %1 could not be created.").arg(folder);
    QFile launcher(from);
    if (!launcher.copy(target()))
        return QStringLiteral("%1 could not be copied to %2: %3.").arg(from, target(), launcher.errorString());
    const QFile::Permissions executable = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup
        | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    if (!QFile::setPermissions(target(), executable))
        return QStringLiteral("%1 was copied but could not be made executable.").arg(target());
    return {};
}

LWShellSupport::Report installedReport()
{
    using LWShellSupport::target;
    const QString folder = QFileInfo(target()).absolutePath();
    QString text = QStringLiteral("Open files from a terminal with \"lwood FILE\", go to a line with "
                                  "\"lwood FILE:LINE\", or wait for the document to close with \"lwood -w FILE\" "
                                  "(for example as EDITOR for git). The launcher is %1.")
                       .arg(target());
    if (!folderIsOnPath(folder))
        text += QStringLiteral(" Add %1 to your PATH to run it by name.").arg(folder);
    return {QStringLiteral("lwood installed"), text};
}

}
