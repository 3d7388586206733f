#include "terminal/WorkingFolderSentinel.h"

#include <QRegularExpression>

namespace WorkingFolderSentinel {

QString folderPrefix(const QString &folder)
{
    if (folder.isEmpty() || folder == QLatin1String("(null)"))
        return QString();
    return QStringLiteral("cd \"%1\" && ").arg(folder);
}

QString commandLine(const QString &folder, const QStringList &words)
{
    return folderPrefix(folder) + words.join(QLatin1Char(' '))
           + QStringLiteral(" && echo \":::::$PWD:::::\"");
}

QString takeFolder(QString &chunk)
{
    static const QRegularExpression recogniser(QStringLiteral(":::::(.+):::::"),
                                               QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = recogniser.match(chunk);
    if (!match.hasMatch())
        return QString();
    const QString folder = match.captured(1);
    const QString markerLine = QStringLiteral(":::::%1:::::\n").arg(folder);
    chunk.remove(markerLine + QLatin1Char('\n'));
    chunk.remove(markerLine);
    return folder;
}

}
