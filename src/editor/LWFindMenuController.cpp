#include "editor/LWFindMenuController.h"

#include "app/LWDefaults.h"
#include "editor/EditorCommand.h"

#include <QAction>
#include <QHash>

namespace {

const QString regexKey = QStringLiteral("LW_Search_Regex");
const QString caseKey = QStringLiteral("LW_Search_Case");
const QString wholeWordKey = QStringLiteral("LW_Search_Whole_Word");
const QString scopeKey = QStringLiteral("LW_Search_Scope");
const QString documentScope = QStringLiteral("Document");
const QString selectionScope = QStringLiteral("Selection");

bool isChecked(const QString &name)
{
    static const QHash<QString, QString> optionKeys = {
        {QStringLiteral("useRegularExpressionsToggle"), regexKey},
        {QStringLiteral("caseSensitiveToggle"), caseKey},
        {QStringLiteral("matchWholeWordToggle"), wholeWordKey},
    };
    const LWDefaults &defaults = *LWDefaults::shared();
    if (optionKeys.contains(name))
        return defaults.boolForKey(optionKeys.value(name));
    if (name == QLatin1String("documentScopeSwitch"))
        return defaults.stringForKey(scopeKey) == documentScope;
    if (name == QLatin1String("selectionScopeSwitch"))
        return defaults.stringForKey(scopeKey) == selectionScope;
    return false;
}

}

bool LWFindMenuController::validateMenuItem(QAction *item) const
{
    const QString name = EditorCommand::actionName(item);
    if (name == QLatin1String("useSelectionForFindAction"))
        return !EditorCommand::ask(QStringLiteral("lw.getSelection();")).isEmpty();
    if (item && item->isCheckable())
        item->setChecked(isChecked(name));
    return true;
}

void LWFindMenuController::findAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.showSearchTab(); lw.find();"));
}

void LWFindMenuController::findNextAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.findNext();"));
}

void LWFindMenuController::findPreviousAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.findPrevious();"));
}

void LWFindMenuController::replaceAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.replace();"));
}

void LWFindMenuController::replaceAllAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.replaceAll();"));
}

void LWFindMenuController::useSelectionForFindAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.showSearchTab(); lw.useSelectionForFind();"));
}

void LWFindMenuController::useRegularExpressionsToggle(QAction *)
{
    EditorCommand::flipAndSend(regexKey, QStringLiteral("lw.searchOptRegexToggle"));
}

void LWFindMenuController::caseSensitiveToggle(QAction *)
{
    EditorCommand::flipAndSend(caseKey, QStringLiteral("lw.searchOptCaseToggle"));
}

void LWFindMenuController::matchWholeWordToggle(QAction *)
{
    EditorCommand::flipAndSend(wholeWordKey, QStringLiteral("lw.searchOptWholeWordToggle"));
}

void LWFindMenuController::documentScopeSwitch(QAction *)
{
    LWDefaults::shared()->setString(scopeKey, documentScope);
}

void LWFindMenuController::selectionScopeSwitch(QAction *)
{
    LWDefaults::shared()->setString(scopeKey, selectionScope);
}
