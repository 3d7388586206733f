#include "app/ui/LWStatusBar.h"

#include "app/ui/Spinner.h"

#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QProgressBar>
#include <QToolButton>

namespace {

constexpr int statusBarHeight = 24;
constexpr int sideMargin = 6;

// A label that gives up width before anything else in the bar: its text is
// cut with an ellipsis rather than widening the window.
class EllipsisLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft, shown);
    }
};

QToolButton *popUpButton(const QString &text, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setText(text);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return button;
}

}

LWStatusBar::LWStatusBar(QWidget *parent) : QStatusBar(parent)
{
    setSizeGripEnabled(false);
    setFixedHeight(statusBarHeight);
    setContentsMargins(sideMargin, 0, sideMargin, 0);
    setAutoFillBackground(true);
    message = new EllipsisLabel(this);
    spinner = makeSpinner(this);
    pluginsButton = popUpButton(QStringLiteral("Plugins"), this);
    pluginsButton->setMenu(new QMenu(pluginsButton));
    specButton = popUpButton(QString(), this);
    location = new QLabel(this);
    addWidget(message, 1);
    addWidget(spinner);
    addPermanentWidget(pluginsButton);
    addPermanentWidget(specButton);
    addPermanentWidget(location);
    spinner->hide();
}

void LWStatusBar::setMessage(const QString &text)
{
    message->setText(text);
    message->setToolTip(text);
    message->setVisible(!text.isEmpty());
}

void LWStatusBar::setMessageVisible(bool visible)
{
    message->setVisible(visible);
}

void LWStatusBar::setSpinnerRunning(bool running)
{
    spinner->setRange(0, running ? 0 : 1);
    spinner->setVisible(running);
}

void LWStatusBar::setSpinnerVisible(bool visible)
{
    spinner->setVisible(visible);
}

void LWStatusBar::setLocationText(const QString &text)
{
    location->setText(text);
}

void LWStatusBar::setSpecTitle(const QString &title)
{
    specButton->setText(title);
}

void LWStatusBar::setSpecMenu(QMenu *menu)
{
    specButton->setMenu(menu);
}

QMenu *LWStatusBar::pluginsMenu() const
{
    return pluginsButton->menu();
}
