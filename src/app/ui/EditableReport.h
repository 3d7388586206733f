#pragma once

class QWebEngineView;

// For start-up measurements: prints the line "editable" on standard output
// once the page's editor holds text and has the keyboard, then stops looking.
namespace EditableReport {

void printWhenEditable(QWebEngineView *view);

}
