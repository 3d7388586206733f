#pragma once

class QMenu;
class QWebEngineView;
class ShellPages;

// Undo, Redo, Cut, Copy, Paste and Select All of the Edit menu, acting on
// whatever has the keyboard: a line edit or text view directly, a web page
// through the browser's editing commands. In the editor page, Undo, Redo and
// Select All go to the editor itself when it has the caret, so they act on
// its own history and whole text rather than on the hidden field it types
// through.
namespace FocusedEditing {

// Puts the items at the top of the Edit menu, with the platform's standard keys.
void addItems(QMenu *edit, QWebEngineView *editorView, ShellPages *pages);

}
