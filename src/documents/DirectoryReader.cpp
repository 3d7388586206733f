#include "documents/DirectoryReader.h"
#include "documents/LWPathText.h"

#include <QFile>
#include <QtGlobal>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>

namespace {

bool statIsFolder(const QString &path, bool followLinks)
{
    struct stat info;
    const QByteArray native = QFile::encodeName(path);
    const int result = followLinks ? ::stat(native.constData(), &info) : ::lstat(native.constData(), &info);
    return result == 0 && S_ISDIR(info.st_mode);
}

bool isDotOrDotDot(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

}

bool DirectoryEntry::isFolderIn(const QString &folder) const
{
    if (type == DT_DIR)
        return true;
    if (type == DT_UNKNOWN || type == DT_LNK)
        return statIsFolder(LWPathText::appendingComponent(folder, name), true);
    return false;
}

bool DirectoryEntry::isDirectoryIn(const QString &folder) const
{
    if (type == DT_UNKNOWN)
        return statIsFolder(LWPathText::appendingComponent(folder, name), false);
    return type == DT_DIR;
}

namespace DirectoryReader {

QVector<DirectoryEntry> read(const QString &folder)
{
    QVector<DirectoryEntry> entries;
    DIR *directory = ::opendir(QFile::encodeName(folder).constData());
    if (!directory) {
        qWarning("FileManager : cannot list folder \"%s\" : %s",
                 qUtf8Printable(folder), std::strerror(errno));
        return entries;
    }
    while (const dirent *entry = ::readdir(directory)) {
        if (!isDotOrDotDot(entry->d_name))
            entries.append({QFile::decodeName(entry->d_name), entry->d_type});
    }
    ::closedir(directory);
    return entries;
}

}
