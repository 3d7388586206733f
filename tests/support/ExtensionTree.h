#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtGlobal>

// A throw-away pair of shipped resource folder and per-user data root for
// extension tests: points LARKWOOD_RESOURCES and XDG_DATA_HOME at temporary
// folders and writes bundle files into either.
class ExtensionTree
{
public:
    ExtensionTree()
        : shippedResources(qEnvironmentVariable("LARKWOOD_RESOURCES"))
    {
        qputenv("LARKWOOD_RESOURCES", resources().toUtf8());
        qputenv("XDG_DATA_HOME", dataHome.path().toUtf8());
        qunsetenv("APP_SANDBOX_CONTAINER_ID");
    }
    ~ExtensionTree() { qputenv("LARKWOOD_RESOURCES", shippedResources.toUtf8()); }

    QString resources() const { return resourceDir.path(); }
    QString dataRoot() const { return dataHome.path() + QStringLiteral("/Larkwood"); }
    // The assembled resource tree of the build (holding the real lessc).
    QString shipped() const { return shippedResources; }

    // Writes a file (creating folders) under the resources or the data root.
    void writeResource(const QString &relative, const QByteArray &bytes) const { write(resources(), relative, bytes); }
    void writeData(const QString &relative, const QByteArray &bytes) const { write(dataRoot(), relative, bytes); }

    QByteArray readData(const QString &relative) const
    {
        QFile file(dataRoot() + QLatin1Char('/') + relative);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool existsInData(const QString &relative) const
    {
        return QFileInfo::exists(dataRoot() + QLatin1Char('/') + relative);
    }

private:
    static void write(const QString &root, const QString &relative, const QByteArray &bytes)
    {
        const QString path = root + QLatin1Char('/') + relative;
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }

    QString shippedResources;
    QTemporaryDir resourceDir;
    QTemporaryDir dataHome;
};
