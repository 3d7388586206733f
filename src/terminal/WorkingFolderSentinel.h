#pragma once

#include <QString>
#include <QStringList>

// Each shell command runs in a fresh login shell. To keep a working folder
// from one command to the next, the command line is followed by an echo of
// the final folder between ":::::" markers and preceded by a change to the
// folder caught from the previous run.
namespace WorkingFolderSentinel {

// "cd "<folder>" && " for a stored folder; "" when none is stored. The folder
// is not escaped.
QString folderPrefix(const QString &folder);

// The prefix, the words joined with blanks, then the echo of the final folder.
QString commandLine(const QString &folder, const QStringList &words);

// Finds the echoed folder in a chunk of output. When found, answers it and
// removes its marker line (with one following blank line if there is one)
// from the chunk; otherwise answers a null string and leaves the chunk alone.
QString takeFolder(QString &chunk);

}
