#pragma once

class DocumentTabs;
class QMenuBar;
class WorkspaceOutline;

// The Window menu: the next and previous tab of the tab bar (Ctrl+Tab and
// Ctrl+PgDown, Ctrl+Shift+Tab and Ctrl+PgUp, wrapping around), and the next
// and previous file of the sidebar (Ctrl+Alt+PgDown, Ctrl+Alt+PgUp). A step
// acts as a click on the tab or row it reaches.
namespace WindowMenu {

void build(QMenuBar *bar, DocumentTabs *tabs, WorkspaceOutline *outline);

}
