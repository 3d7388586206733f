#include "app/ui/WindowScreenshot.h"

#include <QApplication>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <QWidget>

#include <cstdio>

namespace WindowScreenshot {

namespace {

constexpr int pollMilliseconds = 250;
constexpr int settleMilliseconds = 1500;
constexpr int giveUpMilliseconds = 60000;

void saveAndQuit(QWidget *window, const QString &path)
{
    const bool saved = window->grab().save(path);
    if (saved)
        std::printf("%s\n", qPrintable(path));
    else
        qWarning("Could not save the window picture to %s", qPrintable(path));
    std::fflush(stdout);
    QApplication::exit(saved ? 0 : 1);
}

void poll(QWidget *window, QWebEngineView *editor, const QString &path, int waited)
{
    if (waited > giveUpMilliseconds) {
        qWarning("The editor page did not show the editor within %d s; saving the window as it is",
                 giveUpMilliseconds / 1000);
        saveAndQuit(window, path);
        return;
    }
    editor->page()->runJavaScript(
        QStringLiteral("!!document.querySelector('.ace_gutter-cell')"),
        [=](const QVariant &ready) {
            if (ready.toBool()) {
                QTimer::singleShot(settleMilliseconds, window, [=] { saveAndQuit(window, path); });
                return;
            }
            QTimer::singleShot(pollMilliseconds, window,
                               [=] { poll(window, editor, path, waited + pollMilliseconds); });
        });
}

}

void takeWhenEditorReady(QWidget *window, QWebEngineView *editor, const QString &path)
{
    QTimer::singleShot(pollMilliseconds, window, [=] { poll(window, editor, path, 0); });
}

}
