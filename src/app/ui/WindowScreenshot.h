#pragma once

#include <QString>

class QWidget;
class QWebEngineView;

// Headless look at the window: waits until the editor page shows the editor,
// saves a picture of the whole window and quits the application.
namespace WindowScreenshot {

void takeWhenEditorReady(QWidget *window, QWebEngineView *editor, const QString &path);

}
