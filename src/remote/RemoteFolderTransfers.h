#pragma once

#include "remote/RemoteFolderActions.h"
#include "remote/TransferQueue.h"

#include <QString>

#include <memory>
#include <vector>

class LWRemote;
class ShellDialogs;
class ShellPages;
class ShellStatusBar;

// The sidebar's remote-folder actions: each reads the folder's mapping,
// makes the remote of that mapping (kept until the next action) and starts
// its transfers or listing. All transfers share one queue, so at most four
// run at once and one command cancels them all.
class RemoteFolderTransfers : public RemoteFolderActions
{
public:
    RemoteFolderTransfers(ShellPages *pages, ShellStatusBar *statusBar, ShellDialogs *dialogs);
    ~RemoteFolderTransfers() override;

    void upload(const std::shared_ptr<LWDocument> &folder) override;
    void download(const std::shared_ptr<LWDocument> &folder) override;
    void listRemote(const std::shared_ptr<LWDocument> &folder) override;

    // Stops every transfer; the terminal says how many were not done.
    void cancelTransfers();

private:
    // The remote of the folder's mapping, or null after telling the user
    // what is missing.
    LWRemote *remoteFor(const std::shared_ptr<LWDocument> &folder);

    ShellPages *pages;
    ShellDialogs *dialogs;
    TransferQueue transfers;
    std::unique_ptr<LWRemote> remote;
    std::vector<std::unique_ptr<LWRemote>> retired;
};
