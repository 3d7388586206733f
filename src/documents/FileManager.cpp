#include "documents/FileManager.h"
#include "documents/LWPathText.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QUrl>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

fs::path toNative(const QString &path)
{
    return fs::path(QFile::encodeName(path).toStdString());
}

bool existsNoFollow(const fs::path &path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

QString describe(const std::error_code &error, const QString &source, const QString &destination)
{
    return QStringLiteral("%1 (source \"%2\", destination \"%3\")")
        .arg(QString::fromStdString(error.message()), source, destination);
}

QString describe(const std::error_code &error, const QString &path)
{
    return QStringLiteral("%1 (path \"%2\")").arg(QString::fromStdString(error.message()), path);
}

// True when the destination lies inside the source folder, which would make a
// copy recurse into its own output.
bool isInside(const QString &source, const QString &destination)
{
    const QString from = QDir::cleanPath(QFileInfo(source).absoluteFilePath());
    const QString to = QDir::cleanPath(QFileInfo(destination).absoluteFilePath());
    return to.startsWith(from + QLatin1Char('/'));
}

std::error_code copyItem(const QString &source, const QString &destination)
{
    if (existsNoFollow(toNative(destination)))
        return std::make_error_code(std::errc::file_exists);
    if (isInside(source, destination))
        return std::make_error_code(std::errc::invalid_argument);
    std::error_code error;
    fs::copy(toNative(source), toNative(destination),
             fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    return error;
}

std::error_code moveItem(const QString &source, const QString &destination)
{
    if (existsNoFollow(toNative(destination)))
        return std::make_error_code(std::errc::file_exists);
    std::error_code error;
    fs::rename(toNative(source), toNative(destination), error);
    if (error == std::errc::cross_device_link) {
        error = copyItem(source, destination);
        if (!error)
            fs::remove_all(toNative(source), error);
    }
    return error;
}

std::error_code removeItem(const QString &path)
{
    if (!existsNoFollow(toNative(path)))
        return std::make_error_code(std::errc::no_such_file_or_directory);
    std::error_code error;
    fs::remove_all(toNative(path), error);
    return error;
}

std::error_code createFolder(const QString &path)
{
    std::error_code error;
    fs::create_directories(toNative(path), error);
    if (!error && !fs::is_directory(toNative(path), error))
        error = std::make_error_code(std::errc::file_exists);
    return error;
}

// A free name beside the destination for building a copy before swapping it in.
QString temporarySibling(const QString &destination)
{
    const QFileInfo info(destination);
    return FileManager::uniqueFileWithFormat(info.absolutePath(),
                                             QLatin1Char('.') + info.fileName() + QStringLiteral(".copy-%d"));
}

bool revealWithFileManager(const QString &path)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    return bus.call(call, QDBus::Block, 3000).type() == QDBusMessage::ReplyMessage;
}

const QStringList &knownSourceExtensions()
{
    static const QStringList extensions{
        QStringLiteral("c"),    QStringLiteral("h"),      QStringLiteral("cpp"),  QStringLiteral("hpp"),
        QStringLiteral("m"),    QStringLiteral("mm"),     QStringLiteral("swift"), QStringLiteral("go"),
        QStringLiteral("rs"),   QStringLiteral("js"),     QStringLiteral("ts"),   QStringLiteral("jsx"),
        QStringLiteral("tsx"),  QStringLiteral("json"),   QStringLiteral("coffee"), QStringLiteral("less"),
        QStringLiteral("scss"), QStringLiteral("php"),    QStringLiteral("py"),   QStringLiteral("rb"),
        QStringLiteral("lua"),  QStringLiteral("clj"),    QStringLiteral("sh"),   QStringLiteral("yml"),
        QStringLiteral("yaml"), QStringLiteral("toml"),   QStringLiteral("md"),   QStringLiteral("sql")};
    return extensions;
}

}

namespace FileManager {

void copyTo(const QString &path, const QString &destination)
{
    if (const std::error_code error = copyItem(path, destination))
        qWarning("NSString (FileManager) : copyToPath :: ERROR : %s",
                 qUtf8Printable(describe(error, path, destination)));
}

void copyToPath(const QString &path, const QString &destination)
{
    copyTo(path, destination);
}

void copyToFolder(const QString &path, const QString &folder)
{
    copyTo(path, QDir(folder).filePath(lastPathComponent(path)));
}

void recursiveCopyToPath(const QString &path, const QString &destination)
{
    const QString staging = temporarySibling(destination);
    std::error_code error = copyItem(path, staging);
    if (!error && existsNoFollow(toNative(destination)))
        error = removeItem(destination);
    if (!error)
        fs::rename(toNative(staging), toNative(destination), error);
    if (error) {
        removeItem(staging);
        qWarning("FileManager : recursiveCopyToPath :: could not copy : %s",
                 qUtf8Printable(describe(error, path, destination)));
    }
}

void moveTo(const QString &path, const QString &destination)
{
    if (const std::error_code error = moveItem(path, destination))
        qWarning("NSString (FileManager) : moveTo :: ERROR : %s",
                 qUtf8Printable(describe(error, path, destination)));
}

void renameAs(const QString &path, const QString &newPath)
{
    if (const std::error_code error = moveItem(path, newPath))
        qWarning("NSString (FileManager) : renameAs :: ERROR : %s",
                 qUtf8Printable(describe(error, path, newPath)));
}

void deleteFile(const QString &path)
{
    if (const std::error_code error = removeItem(path))
        qWarning("NSString (FileManager) : deleteFile :: ERROR : %s",
                 qUtf8Printable(describe(error, path)));
}

void createAsFolder(const QString &path)
{
    if (const std::error_code error = createFolder(path))
        qWarning("NSString (FileManager) : copyToPath :: ERROR : %s",
                 qUtf8Printable(describe(error, path)));
}

QString uniqueFileWithFormat(const QString &folder, const QString &format)
{
    const qsizetype placeholder = format.indexOf(QStringLiteral("%d"));
    if (placeholder < 0) {
        qWarning("FileManager : uniqueFileWithFormat :: no %%d in format \"%s\"", qUtf8Printable(format));
        return LWPathText::appendingComponent(folder, format);
    }
    for (qint64 n = 1;; ++n) {
        QString name = format;
        name.replace(placeholder, 2, QString::number(n));
        const QString candidate = LWPathText::appendingComponent(folder, name);
        if (!existsNoFollow(toNative(candidate)))
            return candidate;
    }
}

void showInFinder(const QString &path)
{
    if (!revealWithFileManager(path))
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

void showInBrowser(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void openInBrowser(const QString &url)
{
    const QUrl target(url);
    if (!target.isValid()) {
        qWarning("FileManager : openInBrowser :: not a URL : \"%s\"", qUtf8Printable(url));
        return;
    }
    QDesktopServices::openUrl(target);
}

bool fileExists(const QString &path)
{
    return !path.isEmpty() && QFileInfo::exists(path);
}

bool isFolder(const QString &path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

bool isFileHidden(const QString &path)
{
    const QString name = lastPathComponent(path);
    return name != QStringLiteral("..") && name.startsWith(QLatin1Char('.'));
}

bool isTextFile(const QString &path)
{
    static const QMimeDatabase database;
    if (knownSourceExtensions().contains(QFileInfo(path).suffix(), Qt::CaseInsensitive))
        return true;
    return database.mimeTypeForFile(path, QMimeDatabase::MatchExtension)
        .inherits(QStringLiteral("text/plain"));
}

qint32 getFileSize(const QString &path)
{
    return static_cast<qint32>(static_cast<quint32>(QFileInfo(path).size()));
}

QDateTime getDateModified(const QString &path)
{
    return QFileInfo(path).lastModified();
}

QVariantMap fileAttributes(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return {};
    const QString type = info.isSymLink() ? QStringLiteral("symbolicLink")
                         : info.isDir()   ? QStringLiteral("directory")
                         : info.isFile()  ? QStringLiteral("regular")
                                          : QStringLiteral("other");
    return {{QStringLiteral("type"), type},
            {QStringLiteral("size"), info.size()},
            {QStringLiteral("modificationDate"), info.lastModified()},
            {QStringLiteral("creationDate"), info.birthTime()},
            {QStringLiteral("permissions"), int(info.permissions())},
            {QStringLiteral("owner"), info.owner()},
            {QStringLiteral("group"), info.group()}};
}

QString lastPathComponent(const QString &path)
{
    qsizetype end = path.size();
    while (end > 1 && path.at(end - 1) == QLatin1Char('/'))
        --end;
    const QString trimmed = path.left(end);
    return trimmed.mid(trimmed.lastIndexOf(QLatin1Char('/')) + 1);
}

QString deletingPathExtension(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.left(dot) : name;
}

}
