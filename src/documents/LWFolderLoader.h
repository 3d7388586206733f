#pragma once

#include "documents/LWDocument.h"
#include "documents/LWSpecChooser.h"

#include <QRegularExpression>
#include <QString>
#include <QVariantMap>

#include <sys/types.h>
#include <utility>
#include <vector>

// The settings that building nodes from disk reads. They are taken once, on
// the thread that starts an import, and handed to the loader, so that a
// background import never reads the settings store itself.
struct LWImportSettings
{
    QString filter; // names matching it are left out; "" for none
    bool foldersOnTop = true;
    QString defaultSpec;
    QVariantMap userExtensions;

    static LWImportSettings fromDefaults();
};

// One entry of a folder listing that passed the filter.
struct LWFolderEntry
{
    QString name;
    bool isFolder = false;
};

// Builds file, folder and group nodes from disk, loading folders' children
// recursively below one imported root. Folders that cannot be read come out
// empty, and a folder already open higher up the same branch (reached again
// through a symbolic link) is shown but not descended into. Touches only the
// nodes it makes, so it may run on a background thread.
class LWFolderLoader
{
public:
    explicit LWFolderLoader(const QString &root, const LWImportSettings &settings = LWImportSettings::fromDefaults());

    LWDocument::Ptr fileNode(const QString &path) const;
    LWDocument::Ptr folderNode(const QString &path);
    LWDocument::Ptr groupNode(const QString &path);

    // The entries of a folder that the import shows, in the import's order:
    // filtered names left out, folders first when the settings ask for it.
    std::vector<LWFolderEntry> listing(const QString &folderPath) const;
    // The node of one listed entry of a folder below the root; a folder
    // comes with its children loaded.
    LWDocument::Ptr childNode(const QString &folderPath, const LWFolderEntry &entry);

private:
    using FolderIdentity = std::pair<dev_t, ino_t>;

    LWDocument::Ptr newNode(LWDocument::Kind kind, const QString &label, const QString &fullPath,
                            const QString &relativeDirectory) const;
    LWDocument::Ptr fileNode(const QString &fullPath, const QString &name, const QString &relativeDirectory) const;
    LWDocument::Ptr folderNode(const QString &fullPath, const QString &name, const QString &relativeDirectory);
    LWDocument::Ptr childNode(const QString &folderPath, const LWFolderEntry &entry,
                              const QString &relativeDirectory);
    void loadChildren(LWDocument &folder, const QString &folderPath);
    bool isFiltered(const QString &name) const;

    QString root;
    LWImportSettings settings;
    QRegularExpression filter;
    LWSpecChooser chooser;
    std::vector<FolderIdentity> openFolders;
};
