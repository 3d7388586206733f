#pragma once

#include <QStatusBar>

class QLabel;
class QMenu;
class QProgressBar;
class QToolButton;

// The status bar along the bottom of the window: the status message (cut
// short with an ellipsis, the whole text in its tooltip, when the window is
// narrow) and its spinner on the left; the plugins pop-up, the language
// pop-up and the cursor location on the right, each as wide as its text.
class LWStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit LWStatusBar(QWidget *parent = nullptr);

    void setMessage(const QString &message);
    void setMessageVisible(bool visible);
    void setSpinnerRunning(bool running);
    void setSpinnerVisible(bool visible);
    void setLocationText(const QString &text);
    void setSpecTitle(const QString &title);
    // The languages offered by the language pop-up.
    void setSpecMenu(QMenu *menu);
    QMenu *pluginsMenu() const;

private:
    QLabel *message;
    QProgressBar *spinner;
    QToolButton *specButton;
    QToolButton *pluginsButton;
    QLabel *location;
};
