#pragma once

#include <QColor>
#include <QObject>

class LWEnvironment;
class LWMainWindow;
class ShellPages;

// Colours the window's own parts (sidebar, tab bar, status bar, utility
// pane) like the editor's theme. Whenever "LW_Theme" changes, and once when
// started, it asks the editor page for the theme's background, foreground
// and darkness without waiting, asking again while the page is still
// loading the theme.
class WindowColors : public QObject
{
    Q_OBJECT

public:
    WindowColors(LWMainWindow *window, ShellPages *pages, const LWEnvironment *environment);

    // Colours the window for the stored theme and follows later changes.
    void follow();

    // The palette of the window's parts for a theme's colours.
    static QPalette paletteFor(const QColor &background, const QColor &foreground, bool dark);

signals:
    // The window's parts took the theme's colours.
    void applied();

private:
    void askPage(const QString &themeId, int generation, int triesLeft);
    void apply(const QByteArray &answer);

    LWMainWindow *window;
    ShellPages *pages;
    const LWEnvironment *environment;
    // Bumped for every theme asked for, so answers about an older one are dropped.
    int generation = 0;
    bool following = false;
};
