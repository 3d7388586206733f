#include "terminal/WorkingFolderSentinel.h"

#include <QRandomGenerator>
#include <QRegularExpression>

namespace {

// The text as one single-quoted shell word.
QString singleQuoted(QString text)
{
    text.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString randomToken()
{
    QRandomGenerator *random = QRandomGenerator::system();
    return QString::number(random->generate64(), 16) + QString::number(random->generate64(), 16);
}

}

WorkingFolderSentinel::WorkingFolderSentinel() : token(randomToken()) {}

QString WorkingFolderSentinel::folderPrefix(const QString &folder)
{
    if (folder.isEmpty() || folder == QLatin1String("(null)"))
        return QString();
    return QStringLiteral("cd -- %1 && ").arg(singleQuoted(folder));
}

QString WorkingFolderSentinel::commandLine(const QString &folder, const QStringList &words) const
{
    return folderPrefix(folder) + words.join(QLatin1Char(' '))
           + QStringLiteral(" && echo \":::::%1:$PWD:%1:::::\"").arg(token);
}

QString WorkingFolderSentinel::takeFolder(QString &chunk) const
{
    // The marker follows the command's last output, which need not end its
    // line; the token alone tells it from anything the command printed.
    const QRegularExpression recogniser(QStringLiteral(":::::%1:([^\n]+):%1:::::").arg(token));
    const QRegularExpressionMatch match = recogniser.match(chunk);
    if (!match.hasMatch())
        return QString();
    const QString markerLine = match.captured(0) + QLatin1Char('\n');
    chunk.remove(markerLine + QLatin1Char('\n'));
    chunk.remove(markerLine);
    return match.captured(1);
}
