#pragma once

#include <QMainWindow>

class QWebEngineView;

// The editor window: the editor page fills the window.
class LWMainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit LWMainWindow(QWidget *parent = nullptr);

    QWebEngineView *editorView() const { return editor; }

private:
    QWebEngineView *editor;
};
