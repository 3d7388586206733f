#pragma once

#include <QString>
#include <QStringList>

// Each shell command runs in a fresh login shell. To keep a working folder
// from one command to the next, the command line is preceded by a change to
// the folder caught from the previous run and followed by a line echoing the
// final folder between markers. The markers carry a random token of this
// sentinel's own, so output of the command cannot pass for that line, and the
// folder is single-quoted where it is used, so no folder name runs as code.
class WorkingFolderSentinel
{
public:
    WorkingFolderSentinel();

    // "cd -- '<folder>' && " for a stored folder; "" when none is stored.
    static QString folderPrefix(const QString &folder);

    // The prefix, the words joined with blanks, then the echo of the final folder.
    QString commandLine(const QString &folder, const QStringList &words) const;

    // Finds the echoed folder in a chunk of output. When found, answers it and
    // removes its marker line (with one following blank line if there is one)
    // from the chunk; otherwise answers a null string and leaves the chunk alone.
    QString takeFolder(QString &chunk) const;

private:
    QString token;
};
