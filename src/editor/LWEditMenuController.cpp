#include "editor/LWEditMenuController.h"

#include "editor/EditorCommand.h"

bool LWEditMenuController::validateMenuItem(QAction *) const
{
    return true;
}

void LWEditMenuController::selectWordAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectWord();"));
}

void LWEditMenuController::selectLineAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectLine();"));
}

void LWEditMenuController::selectLineToBeginningAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectLineStart();"));
}

void LWEditMenuController::selectLineToEndAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectLineEnd();"));
}

void LWEditMenuController::selectFileToBeginningAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectFileStart();"));
}

void LWEditMenuController::selectFileToEndAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectFileEnd();"));
}

void LWEditMenuController::selectAllAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.selectAll();"));
}

void LWEditMenuController::deselectAllAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.deselectAll();"));
}

void LWEditMenuController::indentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.indent();"));
}

void LWEditMenuController::outdentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.outdent();"));
}

void LWEditMenuController::moveUpAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.moveUp();"));
}

void LWEditMenuController::modeDownAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.moveDown();"));
}

void LWEditMenuController::commentUncommentAction(QAction *)
{
    EditorCommand::send(QStringLiteral("lw.toggleComments();"));
}
