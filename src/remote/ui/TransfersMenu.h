#pragma once

class QMenuBar;
class RemoteFolderTransfers;

// "Cancel Transfers" (Ctrl+Alt+.) in the File menu, above "Quit": stops
// every upload and download of the remote folders.
namespace TransfersMenu {

void build(QMenuBar *bar, RemoteFolderTransfers *transfers);

}
