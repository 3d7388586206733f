#include "editor/LWDocumentMenuController.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellWindow.h"
#include "editor/EditorCommand.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWSpec.h"

#include <QAction>
#include <QFileInfo>

namespace {

const QString userExtensionsKey = QStringLiteral("LW_User_Extensions");

QString extensionOf(const LWDocument &document)
{
    return QFileInfo(document.label()).suffix();
}

bool isOverridden(const QVariantMap &userExtensions, const QString &extension, const QString &specName)
{
    return userExtensions.contains(extension) && userExtensions.value(extension).toString() == specName;
}

}

LWDocumentMenuController::LWDocumentMenuController(CurrentDocument currentDocument, Roles roles, QObject *parent)
    : QObject(parent), currentDocument(std::move(currentDocument)), roles(roles)
{
}

bool LWDocumentMenuController::validateMenuItem(QAction *item) const
{
    const LWDocument::Ptr document = currentDocument();
    const QString name = EditorCommand::actionName(item);
    if (!document)
        return true;
    if (name == QLatin1String("setSpecAction"))
        item->setChecked(item->text() == document->specName());
    if (name == QLatin1String("setDefaultForCurrentExtension"))
        return validateOverrideItem(item, *document);
    return true;
}

bool LWDocumentMenuController::validateOverrideItem(QAction *item, const LWDocument &document) const
{
    const QString extension = extensionOf(document);
    const LWEnvironment *environment = LWEnvironment::shared();
    const LWSpec *registered = environment ? environment->extensions().value(extension) : nullptr;
    if (registered && registered->name() == document.specName())
        return false;
    const QVariantMap userExtensions = LWDefaults::shared()->dictionaryForKey(userExtensionsKey);
    item->setChecked(isOverridden(userExtensions, extension, document.specName()));
    return true;
}

void LWDocumentMenuController::goToLineAction(QAction *)
{
    roles.dialogs.showInput(QStringLiteral("Line number"), QStringLiteral("1"), [](const QString &line) {
        EditorCommand::send(QStringLiteral("lw.goToLine(%1);").arg(line));
    });
}

void LWDocumentMenuController::scrollPageUpAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.scrollPageUp();"));
}

void LWDocumentMenuController::scrollPageDownAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.scrollPageDown();"));
}

void LWDocumentMenuController::scrollToSelectionAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.scrollToSelection();"));
}

void LWDocumentMenuController::bookmarkMarkCurrentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.bookmarkMarkCurrent();"));
}

void LWDocumentMenuController::bookmarkUnmarkCurrentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.bookmarkUnmarkCurrent();"));
}

void LWDocumentMenuController::bookmarkRemoveAllAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.bookmarkRemoveAll();"));
}

void LWDocumentMenuController::foldingFoldAllAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.foldAll();"));
}

void LWDocumentMenuController::foldingUnfoldAllAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.unfoldAll();"));
}

void LWDocumentMenuController::foldingFoldCurrentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.foldCurrent();"));
}

void LWDocumentMenuController::foldingUnfoldCurrentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.unfoldCurrent();"));
}

void LWDocumentMenuController::setSpecAction(QAction *sender)
{
    auto *spec = sender ? qobject_cast<LWSpec *>(sender->data().value<QObject *>()) : nullptr;
    if (!spec) {
        qWarning("setSpecAction: the menu item carries no language specification");
        return;
    }
    roles.window.updatePluginMenusForSpec(spec);
    const LWDocument::Ptr document = currentDocument();
    if (!document)
        return;
    document->setSpecName(spec->name());
    EditorCommand::send(QStringLiteral("lw.setMode('%1');").arg(spec->infoText(QStringLiteral("name"))));
    roles.statusBar.setSpecPopupTitle(spec->name());
}

void LWDocumentMenuController::setDefaultForCurrentExtension(QAction *sender)
{
    const LWDocument::Ptr document = currentDocument();
    if (!document)
        return;
    // The item shows whether the override is stored (see the validator), so
    // the stored state decides rather than a check mark the toolkit may
    // already have flipped on the click.
    LWDefaults *defaults = LWDefaults::shared();
    QVariantMap userExtensions = defaults->dictionaryForKey(userExtensionsKey);
    const QString extension = extensionOf(*document);
    const bool turnOn = !isOverridden(userExtensions, extension, document->specName());
    if (turnOn)
        userExtensions.insert(extension, document->specName());
    else
        userExtensions.remove(extension);
    if (sender)
        sender->setChecked(turnOn);
    defaults->setObject(userExtensionsKey, userExtensions);
    defaults->synchronize();
}
