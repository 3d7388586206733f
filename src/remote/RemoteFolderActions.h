#pragma once

#include <memory>

class LWDocument;

// The transfers behind the sidebar's remote-folder entries. Each takes a
// workspace folder (or group) that holds its ".ftp-settings.json" mapping,
// returns at once and reports in the terminal and the status bar.
class RemoteFolderActions
{
public:
    virtual ~RemoteFolderActions() = default;

    virtual void upload(const std::shared_ptr<LWDocument> &folder) = 0;
    virtual void download(const std::shared_ptr<LWDocument> &folder) = 0;
    virtual void listRemote(const std::shared_ptr<LWDocument> &folder) = 0;
};
