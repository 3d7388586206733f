#include "app/ui/LWMainWindow.h"

#include "app/LWPaths.h"

#include <QUrl>
#include <QWebEngineView>

LWMainWindow::LWMainWindow(QWidget *parent)
    : QMainWindow(parent), editor(new QWebEngineView(this))
{
    setWindowTitle(QStringLiteral("Larkwood"));
    setCentralWidget(editor);
    editor->load(QUrl::fromLocalFile(LWPaths::resourcePath(QStringLiteral("Data/Html/index.html"))));
}
