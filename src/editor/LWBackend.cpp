#include "editor/LWBackend.h"

#include "editor/PageCall.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellRoles.h"
#include "app/roles/ShellStatusBar.h"
#include "documents/LWDocumentManager.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStringList>

namespace {

// The options the page's search panel may store.
const QStringList searchOptionKeys = {QStringLiteral("LW_Search_Regex"), QStringLiteral("LW_Search_Case"),
                                      QStringLiteral("LW_Search_Whole_Word")};

QClipboard *clipboard()
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        qWarning("No clipboard without a graphical application");
        return nullptr;
    }
    return QGuiApplication::clipboard();
}

}

void LWBackend::currentLocationChanged_(const QString &location)
{
    const PageCall call;
    if (ShellStatusBar *statusBar = ShellRoles::statusBar())
        statusBar->setLocationText(location);
}

void LWBackend::currentDocumentChanged()
{
    const PageCall call;
    LWDocumentManager *manager = LWDocumentManager::shared();
    const LWDocument::Ptr document = manager ? manager->currentDocument() : nullptr;
    ShellPages *pages = ShellRoles::pages();
    if (!pages || !document || !document->saved() || LWDocumentManager::showsAsImage(document))
        return;
    // The page reports changes a frame late, possibly after the editor has
    // moved on to another document: only a text that is no longer the one
    // the current document gave the editor marks that document unsaved.
    pages->evaluateInEditor(document->editorStateQuery(), [document](const QString &state) {
        LWDocumentManager *manager = LWDocumentManager::shared();
        if (!manager || manager->currentDocument() != document || !document->saved() || document->isUnchangedIn(state))
            return;
        document->setSaved(false);
        if (ShellOutline *outline = ShellRoles::outline()) {
            outline->reloadOutline();
            outline->selectInOutline(document);
        }
    });
}

void LWBackend::searchOptChanged_withValue_(const QString &key, bool value)
{
    const PageCall call;
    if (!searchOptionKeys.contains(key)) {
        qWarning("searchOptChanged: %s is not a search option; nothing stored", qPrintable(key.left(80)));
        return;
    }
    LWDefaults::shared()->setBool(key, value);
}

void LWBackend::panelToggled_(bool shown)
{
    const PageCall call;
    LWDefaults::shared()->setBool(QStringLiteral("LW_Panel"), shown);
}

void LWBackend::jslog_(const QString &message)
{
    const PageCall call;
    qInfo("\nJS: %s", qPrintable(message));
}

void LWBackend::showStatus_(const QString &text)
{
    const PageCall call;
    if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
        statusBar->setStatusMessage(text);
        statusBar->setStatusSpinnerRunning(true);
    }
}

void LWBackend::hideStatus()
{
    const PageCall call;
    if (ShellStatusBar *statusBar = ShellRoles::statusBar()) {
        statusBar->setStatusMessage(QString());
        statusBar->setStatusSpinnerRunning(false);
    }
}

QString LWBackend::getClipboard()
{
    const PageCall call;
    QClipboard *board = clipboard();
    return board ? board->text() : QString();
}

void LWBackend::setClipboard_(const QString &text)
{
    const PageCall call;
    if (QClipboard *board = clipboard())
        board->setText(text);
}
