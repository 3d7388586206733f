#pragma once

#include <QString>
#include <QStringList>

// The files and folders the user opened or saved lately, newest first, kept
// in the settings ("LW_RecentDocuments") so that they outlive the run. A path
// noted again moves to the front; the oldest fall off past the limit.
namespace LWRecentDocuments {

constexpr int Limit = 10;

QStringList paths();
void note(const QString &path);
void forget(const QString &path);
void clear();

}
