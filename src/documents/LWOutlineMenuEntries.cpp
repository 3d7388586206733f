#include "documents/LWOutlineMenuEntries.h"

#include "extensions/LWMenuItems.h"

#include <QHash>

namespace LWOutlineMenuEntries {

const char *const RemoteMappingTemplate = "{\n\t\"type\": \"ftp\",\n\t\"host\": \"hostaddress\",\n\t\"username\": "
                                          "\"username\",\n\t\"password\": \"password\",\n\t\"port\": \"22\",\n\t"
                                          "\"excluded\": [],\n\t\"path\": \"/\"\n}";

namespace {

QVariantMap entry(const char *title, const char *selector)
{
    return LWMenuItems::item(QString::fromLatin1(title), QString::fromLatin1(selector), QVariant(), QString());
}

QVariantMap remoteSubmenu(const char *mappingTitle)
{
    return LWMenuItems::submenu(QStringLiteral("FTP"),
                                {entry(mappingTitle, "ftpMapToRemoteAction:"), LWMenuItems::separator(),
                                 entry("Upload Local -> Remote", "ftpSyncLocalToRemoteAction:"),
                                 entry("Download Remote -> Local", "ftpSyncRemoteToLocalAction:"),
                                 LWMenuItems::separator(), entry("List Remote files", "ftpListRemoteAction:")});
}

QVariantList fileEntries()
{
    return {entry("Open in New Tab", "openInNewTabAction:"), LWMenuItems::separator(),
            entry("Rename...", "renameAction:"), entry("Delete", "deleteAction:"),
            entry("Remove from Workspace", "removeFromWorkspaceAction:"), LWMenuItems::separator(),
            entry("Show in Finder", "showInFinderAction:")};
}

QVariantList folderEntries()
{
    return {entry("New File", "newFileAction:"), entry("New Folder", "newFolderAction:"), LWMenuItems::separator(),
            entry("Rename...", "renameAction:"), entry("Delete", "deleteAction:"),
            entry("Remove from Workspace", "removeFromWorkspaceAction:"), LWMenuItems::separator(),
            remoteSubmenu("Map to remote location"), LWMenuItems::separator(), entry("Expand All", "expandAllAction:"),
            entry("Collapse All", "collapseAllAction:"), LWMenuItems::separator(),
            entry("Reload from disk", "reloadFromDiskAction:"), entry("Show in Finder", "showInFinderAction:")};
}

QVariantList groupEntries()
{
    return {entry("New File", "newFileAction:"), entry("New Folder", "newFolderAction:"), LWMenuItems::separator(),
            entry("Reload from disk", "reloadFromDiskAction:"),
            entry("Remove from Workspace", "removeFromWorkspaceAction:"), LWMenuItems::separator(),
            remoteSubmenu("Map to Remote location"), LWMenuItems::separator(), entry("Expand All", "expandAllAction:"),
            entry("Collapse All", "collapseAllAction:"), LWMenuItems::separator(),
            entry("Show in Finder", "showInFinderAction:")};
}

bool isFilesGroup(const LWDocument &node)
{
    return node.isGroup() && node.isUntitled() && node.label() == QLatin1String("FILES");
}

bool hasPath(const LWDocument &node)
{
    return !node.isUntitled();
}

bool canBeMapped(const LWDocument &node)
{
    return hasPath(node) && !node.isFTPMapped();
}

bool isMapped(const LWDocument &node)
{
    return hasPath(node) && node.isFTPMapped();
}

bool hasChildren(const LWDocument &node)
{
    return node.noOfChildren() > 0;
}

using Rule = bool (*)(const LWDocument &);

// Entries missing here are always enabled.
const QHash<QString, Rule> &rules()
{
    static const QHash<QString, Rule> table = {
        {QStringLiteral("New Folder"), [](const LWDocument &node) { return node.isExpandable() && hasPath(node); }},
        {QStringLiteral("Delete"),
         [](const LWDocument &node) { return (node.isFile() || node.isFolder()) && hasPath(node); }},
        {QStringLiteral("Remove from Workspace"), [](const LWDocument &node) { return !isFilesGroup(node); }},
        {QStringLiteral("Show in Finder"), hasPath},
        {QStringLiteral("Expand All"), hasChildren},
        {QStringLiteral("Collapse All"), hasChildren},
        {QStringLiteral("Reload from disk"), [](const LWDocument &node) { return node.isGroup() && hasPath(node); }},
        {QStringLiteral("Map to remote location"), canBeMapped},
        {QStringLiteral("Map to Remote location"), canBeMapped},
        {QStringLiteral("Upload Local -> Remote"), isMapped},
        {QStringLiteral("Download Remote -> Local"), isMapped},
        {QStringLiteral("List Remote files"), isMapped},
    };
    return table;
}

}

QVariantList entriesFor(const LWDocument &node)
{
    if (node.isFile())
        return fileEntries();
    if (node.isFolder())
        return folderEntries();
    if (node.isGroup())
        return groupEntries();
    return {};
}

bool isEnabled(const QString &title, const LWDocument *node)
{
    if (!node)
        return false;
    const Rule rule = rules().value(title);
    return !rule || rule(*node);
}

}
