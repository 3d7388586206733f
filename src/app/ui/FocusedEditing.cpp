#include "app/ui/FocusedEditing.h"

#include "app/roles/ShellPages.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextEdit>
#include <QWebEngineView>

namespace FocusedEditing {

namespace {

struct Command
{
    const char *title;
    const char *name;
    QKeySequence::StandardKey key;
    QWebEnginePage::WebAction pageAction;
    // For the editor page: the editor's own command while it has the caret,
    // else the page's; decided in the page, so nothing here waits for it.
    const char *editorScript;
};

const Command commands[] = {
    {"Undo", "undoAction", QKeySequence::Undo, QWebEnginePage::Undo,
     "if (lw.editor.isFocused()) lw.editor.undo(); else document.execCommand('undo');"},
    {"Redo", "redoAction", QKeySequence::Redo, QWebEnginePage::Redo,
     "if (lw.editor.isFocused()) lw.editor.redo(); else document.execCommand('redo');"},
    {"Cut", "cutAction", QKeySequence::Cut, QWebEnginePage::Cut, nullptr},
    {"Copy", "copyAction", QKeySequence::Copy, QWebEnginePage::Copy, nullptr},
    {"Paste", "pasteAction", QKeySequence::Paste, QWebEnginePage::Paste, nullptr},
    {"Select All", "selectAllAction", QKeySequence::SelectAll, QWebEnginePage::SelectAll,
     "if (lw.editor.isFocused()) lw.selectAll(); else document.execCommand('selectAll');"},
};

// Line edits and text views share these slot names.
template <typename Field>
void performOn(Field *field, QWebEnginePage::WebAction action)
{
    switch (action) {
    case QWebEnginePage::Undo: field->undo(); break;
    case QWebEnginePage::Redo: field->redo(); break;
    case QWebEnginePage::Cut: field->cut(); break;
    case QWebEnginePage::Copy: field->copy(); break;
    case QWebEnginePage::Paste: field->paste(); break;
    default: field->selectAll(); break;
    }
}

// The web view holding the widget, if any.
QWebEngineView *enclosingView(QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto *view = qobject_cast<QWebEngineView *>(widget))
            return view;
    }
    return nullptr;
}

bool performOnTextField(QWidget *focus, QWebEnginePage::WebAction action)
{
    if (auto *line = qobject_cast<QLineEdit *>(focus))
        performOn(line, action);
    else if (auto *plain = qobject_cast<QPlainTextEdit *>(focus))
        performOn(plain, action);
    else if (auto *rich = qobject_cast<QTextEdit *>(focus))
        performOn(rich, action);
    else
        return false;
    return true;
}

void perform(const Command &command, QWebEngineView *editorView, ShellPages *pages)
{
    QWidget *focus = QApplication::focusWidget();
    if (performOnTextField(focus, command.pageAction))
        return;
    QWebEngineView *view = enclosingView(focus);
    if (!view)
        view = editorView;
    if (view != editorView) {
        view->page()->triggerAction(command.pageAction);
        return;
    }
    if (command.editorScript) {
        pages->sendToEditor(QString::fromLatin1(command.editorScript));
        return;
    }
    // After the scripts sent before it (a Select All just chosen, say).
    const QPointer<QWebEngineView> target(view);
    pages->evaluateInEditor(QStringLiteral("''"), [target, action = command.pageAction](const QString &) {
        if (target)
            target->page()->triggerAction(action);
    });
}

}

void addItems(QMenu *edit, QWebEngineView *editorView, ShellPages *pages)
{
    QAction *first = edit->actions().value(0);
    for (const Command &command : commands) {
        auto *item = new QAction(QString::fromLatin1(command.title), edit);
        item->setObjectName(QString::fromLatin1(command.name));
        item->setShortcuts(command.key);
        QObject::connect(item, &QAction::triggered, edit,
                         [&command, editorView, pages] { perform(command, editorView, pages); });
        edit->insertAction(first, item);
        if (command.pageAction == QWebEnginePage::Redo || command.pageAction == QWebEnginePage::SelectAll)
            edit->insertSeparator(first);
    }
}

}
