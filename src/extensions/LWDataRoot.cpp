#include "extensions/LWDataRoot.h"

#include "app/LWPaths.h"
#include "documents/FileManager.h"
#include "extensions/LWTextFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtDebug>

namespace LWDataRoot {

namespace {

const QString versionFile = QStringLiteral("version.txt");

void copyUserFolders()
{
    for (const char *folder : {"User", "User/Templates", "User/Snippets"}) {
        const QString relative = QLatin1String(folder);
        if (!QFileInfo::exists(LWPaths::dataPath(relative)))
            FileManager::copyTo(LWPaths::resourcePath(relative), LWPaths::dataPath(relative));
    }
}

void copyData(bool replacing)
{
    const QString data = LWPaths::dataPath(QStringLiteral("Data"));
    if (replacing)
        QDir(data).removeRecursively();
    FileManager::copyTo(LWPaths::resourcePath(QStringLiteral("Data")), data);
    LWTextFiles::writeAtomically(LWPaths::dataPath(versionFile), QString::number(LWPaths::buildNumber()));
}

// The build number stored in "version.txt" under the root; 0 when the text is
// not a number, -1 when the file is missing.
int storedBuildNumber()
{
    const auto text = LWTextFiles::readUtf8(LWPaths::dataPath(versionFile));
    if (!text)
        return -1;
    // Like the platform's integer reading: leading digits count, anything else is 0.
    static const QRegularExpression leadingNumber(QStringLiteral("^\\s*([-+]?\\d+)"));
    return leadingNumber.match(*text).captured(1).toInt();
}

}

bool prepare()
{
    if (!LWPaths::isSandboxed() && !QFileInfo::exists(LWPaths::dataRoot()))
        QDir().mkpath(LWPaths::dataRoot());
    copyUserFolders();
    const int stored = storedBuildNumber();
    if (stored >= LWPaths::buildNumber())
        return false;
    qInfo("LWDataRoot :: copying Data (stored build %d, running build %d)", stored, LWPaths::buildNumber());
    copyData(stored >= 0);
    return true;
}

}
