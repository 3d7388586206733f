#include "remote/RemoteEntry.h"

#include "remote/RemoteSettings.h"

#include <QRegularExpression>

QList<RemoteEntry> RemoteEntry::fromLongListing(const QString &listing, const QString &folderPath)
{
    // Mode, links, owner, group, size, month, day, time or year, one blank, name.
    static const QRegularExpression line(
        QStringLiteral(R"(^([dl\-])\S{9}\S*\s+\d+\s+\S+\s+\S+\s+\d+\s+\S+\s+\d+\s+\S+ (.+)$)"));
    QList<RemoteEntry> entries;
    for (const QString &text : listing.split(QRegularExpression(QStringLiteral("\r?\n")), Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch match = line.match(text);
        if (!match.hasMatch())
            continue;
        QString name = match.captured(2);
        if (match.captured(1) == QLatin1String("l"))
            name = name.section(QStringLiteral(" -> "), 0, 0);
        if (name == QLatin1String(".") || name == QLatin1String(".."))
            continue;
        entries.append({RemoteSettings::joined({folderPath, name}), match.captured(1) == QLatin1String("d")});
    }
    return entries;
}
