// The window side of LWShell: what the core library asks of the main window,
// its pages and its dialogs.
#include "app/ui/LWAppDelegate.h"

#include "documents/LWRecentDocuments.h"

#include "app/ui/Dialogs.h"
#include "app/ui/EditorMenus.h"
#include "app/ui/DocumentTabs.h"
#include "app/ui/LWMainWindow.h"
#include "app/ui/PluginsMenu.h"
#include "app/ui/WorkspaceOutline.h"
#include "documents/LWDocumentManager.h"
#include "editor/ui/LWBridgePage.h"
#include "editor/ui/LWUtilityWebViewController.h"
#include "editor/ui/LWWebViewController.h"

#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QPrintDialog>
#include <QPrinter>

void LWAppDelegate::sendToEditor(const QString &script)
{
    editorPage->send(script);
}

QString LWAppDelegate::evaluateInEditor(const QString &script)
{
    return editorPage->evaluate(script);
}

void LWAppDelegate::evaluateInEditor(const QString &script, const std::function<void(const QString &)> &answered)
{
    editorPage->page()->evaluate(script, answered);
}

QString LWAppDelegate::evaluateInUtility(const QString &script)
{
    return utilityPage->evaluate(script);
}

void LWAppDelegate::setStatusMessage(const QString &message)
{
    mainWindow->setStatusMessage(message);
}

void LWAppDelegate::setStatusSpinnerRunning(bool running)
{
    mainWindow->setSpinnerRunning(running);
}

void LWAppDelegate::setLocationText(const QString &text)
{
    mainWindow->setLocationText(text);
}

void LWAppDelegate::showAlert(const QString &title, const QString &informativeText)
{
    Dialogs::alert(mainWindow.get(), title, informativeText);
}

void LWAppDelegate::setRunButtonVisible(bool visible)
{
    mainWindow->setRunButtonVisible(visible);
}

void LWAppDelegate::updateThemesMenu()
{
    if (auto *themes = mainWindow->menuBar()->findChild<QMenu *>(QStringLiteral("themesMenu")))
        EditorMenus::fillThemes(themes, viewMenu.get(), environment.get());
}

void LWAppDelegate::showAlert(const QString &title, const QString &informativeText,
                              const std::function<void()> &dismissed)
{
    Dialogs::alert(mainWindow.get(), title, informativeText, dismissed);
}

void LWAppDelegate::showConfirmation(const QString &title, const QString &informativeText,
                                     const std::function<void(int)> &answered)
{
    Dialogs::okCancel(mainWindow.get(), title, informativeText, answered);
}

void LWAppDelegate::showChoice(const QString &title, const QString &informativeText, const QString &defaultButton,
                               const QString &otherButton, const std::function<void(int)> &answered)
{
    Dialogs::choice(mainWindow.get(), title, informativeText, defaultButton, otherButton, answered);
}

void LWAppDelegate::showInput(const QString &title, const QString &defaultValue,
                              const std::function<void(const QString &)> &accepted)
{
    Dialogs::input(mainWindow.get(), title, defaultValue, accepted);
}

void LWAppDelegate::showSlider(const QString &title, double minimum, double maximum, double value,
                               const std::function<void(double)> &moved, const std::function<void(double)> &accepted)
{
    Dialogs::slider(mainWindow.get(), title, minimum, maximum, value, moved, accepted);
}

bool LWAppDelegate::isUtilityViewVisible()
{
    return mainWindow->isUtilityVisible();
}

void LWAppDelegate::openUtilityView()
{
    mainWindow->setUtilityVisible(true);
}

void LWAppDelegate::closeUtilityView()
{
    mainWindow->setUtilityVisible(false);
}

void LWAppDelegate::setUtilityLabel(const QString &label)
{
    mainWindow->setUtilityLabel(label);
}

void LWAppDelegate::loadUtilityHTML(const QString &html)
{
    utilityPage->loadHTML(html);
}

void LWAppDelegate::loadUtilityHTML(const QString &html, const QString &basePath)
{
    utilityPage->loadHTML(html, basePath);
}

void LWAppDelegate::loadUtilityHTMLFile(const QString &pathOrURL, const QVariantList &cookies)
{
    utilityPage->loadHTMLFile(pathOrURL, cookies);
}

void LWAppDelegate::loadUtilityEditor(const QString &content, const QString &mode)
{
    utilityPage->loadEditorHTML(content, mode);
}

void LWAppDelegate::setUtilityPluginMenu(const QStringList &titles)
{
    mainWindow->setPluginMenuTitles(titles);
}

void LWAppDelegate::setSidebarVisible(bool visible)
{
    mainWindow->setSidebarVisible(visible);
}

void LWAppDelegate::setTabBarVisible(bool visible)
{
    mainWindow->setTabBarVisible(visible);
}

void LWAppDelegate::setStatusBarVisible(bool visible)
{
    mainWindow->statusBar()->setVisible(visible);
}

void LWAppDelegate::setSpecPopupTitle(const QString &title)
{
    mainWindow->setSpecTitle(title);
}

// The registry shows the run button again when the language binds a plugin
// to it; a document without a known language has none.
void LWAppDelegate::updatePluginMenusForSpec(LWSpec *spec)
{
    mainWindow->setRunButtonVisible(false);
    pluginsMenu->rebuildFor(spec);
}

void LWAppDelegate::setWindowTitle(const QString &title)
{
    mainWindow->setWindowTitle(title);
}

void LWAppDelegate::setLoadingSpinnerVisible(bool visible)
{
    mainWindow->setLoadingSpinnerVisible(visible);
}

void LWAppDelegate::showEditorView()
{
    mainWindow->showEditor();
}

void LWAppDelegate::showImagePreview(const QImage &image)
{
    mainWindow->showImage(image);
}

void LWAppDelegate::setStatusMessageVisible(bool visible)
{
    mainWindow->setStatusMessageVisible(visible);
}

void LWAppDelegate::setStatusSpinnerVisible(bool visible)
{
    mainWindow->setSpinnerVisible(visible);
}

// The node named by setDocumentToSelect() is selected once the outline shows
// it, and a selection the workspace asks for opens the node in the editor.
void LWAppDelegate::reloadOutline()
{
    mainWindow->outline()->reload(documents->documentTree());
    if (!documentToSelect)
        return;
    const std::shared_ptr<LWDocument> selected = std::exchange(documentToSelect, nullptr);
    mainWindow->outline()->select(selected);
    if (selected->isFile())
        openFromOutline(selected);
}

// Selecting a file opens it, as a click on its row does.
void LWAppDelegate::selectInOutline(const std::shared_ptr<LWDocument> &document)
{
    mainWindow->outline()->select(document);
    if (document && document->isFile() && document != documents->currentDocument())
        openFromOutline(document);
    goToPendingLine();
}

void LWAppDelegate::expandInOutline(const std::shared_ptr<LWDocument> &document, bool withChildren)
{
    mainWindow->outline()->expand(document, withChildren);
}

std::shared_ptr<LWDocument> LWAppDelegate::selectedInOutline()
{
    return mainWindow->outline()->selected();
}

void LWAppDelegate::openOutlineSelectionInNewTab()
{
    const std::shared_ptr<LWDocument> selected = selectedInOutline();
    if (!selected || !selected->isFile())
        return;
    addTabWithDocument(selected);
    switchTo(selected);
}

void LWAppDelegate::addTabWithDocument(const std::shared_ptr<LWDocument> &document)
{
    mainWindow->tabs()->addDocument(document);
}

void LWAppDelegate::setSelectedTabTitle(const QString &title)
{
    DocumentTabs *tabs = mainWindow->tabs();
    if (tabs->currentIndex() >= 0)
        tabs->setTabText(tabs->currentIndex(), title);
}

void LWAppDelegate::setDocumentToSelect(const std::shared_ptr<LWDocument> &document)
{
    documentToSelect = document;
}

void LWAppDelegate::noteRecentDocument(const QString &path)
{
    LWRecentDocuments::note(path);
}

void LWAppDelegate::showOpenDialog(bool files, bool folders, const QStringList &fileTypes,
                                   const std::function<void(const QString &)> &chosen)
{
    Dialogs::open(mainWindow.get(), files, folders, fileTypes, chosen);
}

void LWAppDelegate::showSaveDialog(const std::function<void(const QString &)> &chosen)
{
    Dialogs::save(mainWindow.get(), chosen);
}

void LWAppDelegate::printText(const QString &text)
{
    auto *printer = new QPrinter;
    auto *dialog = new QPrintDialog(printer, mainWindow.get());
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, dialog, [printer, text] {
        QPlainTextEdit view(text);
        view.resize(468, 648);
        view.print(printer);
    });
    connect(dialog, &QObject::destroyed, dialog, [printer] { delete printer; });
    dialog->open();
}
