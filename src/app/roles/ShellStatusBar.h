#pragma once

#include <QString>

// The status bar along the bottom of the window.
class ShellStatusBar
{
public:
    virtual ~ShellStatusBar() = default;

    virtual void setStatusMessage(const QString &message) = 0;
    virtual void setStatusMessageVisible(bool visible) = 0;
    virtual void setStatusSpinnerRunning(bool running) = 0;
    virtual void setStatusSpinnerVisible(bool visible) = 0;
    virtual void setLocationText(const QString &text) = 0;
    // The language pop-up's title.
    virtual void setSpecPopupTitle(const QString &title) = 0;
};
