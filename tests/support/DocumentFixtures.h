#pragma once

#include "app/LWDefaultsController.h"
#include "extensions/LWEnvironment.h"
#include "support/ExtensionTree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

// Files on disk and an installed extension registry for workspace tests.
// Specifications: Python ("py", "SConstruct"), Markdown ("md"), Literate
// ("coffee.md"), HTML ("html") and Plain Text ("txt"), whose modes are their
// names in lower case.
class DocumentFixtures
{
public:
    DocumentFixtures()
    {
        writeSpec("Python", "python", "\"py\", \"SConstruct\"");
        writeSpec("Markdown", "markdown", "\"md\"");
        writeSpec("Literate", "literate", "\"coffee.md\"");
        writeSpec("HTML", "html", "\"html\"");
        writeSpec("Plain Text", "text", "\"txt\"");
        for (const char *folder : {"Data/Themes", "Data/Plugins", "User/Themes", "User/Plugins",
                                   "User/Templates", "User/Snippets"})
            tree.writeResource(QString::fromLatin1(folder) + QStringLiteral("/.keep"), "");
        environment.load();
        LWEnvironment::setShared(&environment);
    }
    ~DocumentFixtures() { LWEnvironment::setShared(nullptr); }

    QString root() const { return scratch.path(); }
    QString path(const QString &relative) const { return root() + QLatin1Char('/') + relative; }

    // Writes a file below the scratch folder, creating its folders; answers its path.
    QString write(const QString &relative, const QByteArray &bytes = "text") const
    {
        const QString full = path(relative);
        QDir().mkpath(QFileInfo(full).absolutePath());
        QFile file(full);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return full;
    }
    QString makeFolder(const QString &relative) const
    {
        QDir().mkpath(path(relative));
        return path(relative);
    }
    static QByteArray read(const QString &fullPath)
    {
        QFile file(fullPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    void writeSpec(const QString &bundle, const QByteArray &mode, const QByteArray &extensions)
    {
        tree.writeResource(QStringLiteral("Data/Specs/%1.lwSpec/info.json").arg(bundle),
                           "{\"name\": \"" + mode + "\", \"extensions\": [" + extensions + "]}");
    }

    LWDefaultsController defaultsController; // registers the settings' fallback values
    ExtensionTree tree;
    LWEnvironment environment;
    QTemporaryDir scratch;
};
