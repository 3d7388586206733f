// Quitting: the Quit command, the window's close button, and what is kept
// for the next run.
#include "app/ui/LWAppDelegate.h"

#include "app/LWDefaults.h"
#include "app/ui/Dialogs.h"
#include "app/ui/DocumentTabs.h"
#include "app/ui/WindowSession.h"
#include "app/ui/LWMainWindow.h"
#include "documents/LWDocumentManager.h"
#include "terminal/ProcessGroup.h"

#include <QCoreApplication>

namespace {

qint64 doOnQuit()
{
    return LWDefaults::shared()->integerForKey(QStringLiteral("LW_DoOnQuit"));
}

}

void LWAppDelegate::requestQuit()
{
    // The tree answers true when nothing is unsaved.
    if (appTerminating || doOnQuit() != 0 || documents->documentTree().unsavedChanges()) {
        terminate();
        return;
    }
    Dialogs::yesNo(mainWindow.get(), QStringLiteral("Are you sure?"),
                   QStringLiteral("If you exit, all unsaved changes will be lost."), [this](int answer) {
                       if (answer == 0)
                           terminate();
                   });
}

void LWAppDelegate::windowCloseRequested()
{
    if (doOnQuit() == 0 || doOnQuit() == 1)
        requestQuit();
}

void LWAppDelegate::terminate()
{
    appTerminating = true;
    ProcessGroup::killAll();
    QCoreApplication::exit(0);
}

void LWAppDelegate::shutDown()
{
    qInfo("Application WILL terminate");
    documents->rememberWorkspace();
    const LWDocument::Ptr selected = mainWindow->tabs()->selectedDocument();
    WindowSession::save(*mainWindow, openDocumentPaths(), selected ? selected->fullPath() : QString());
    LWDefaults::shared()->synchronize();
    // Commands still running (and whatever they started) end with the editor.
    ProcessGroup::killAll();
}
