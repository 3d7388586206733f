#include "app/ui/WindowColors.h"

#include "app/LWDefaults.h"
#include "app/roles/ShellPages.h"
#include "app/ui/LWMainWindow.h"
#include "documents/ui/TabBarView.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWTheme.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPalette>
#include <QPointer>
#include <QTimer>

namespace {

const QString themeKey = QStringLiteral("LW_Theme");
constexpr int retryMilliseconds = 100;
constexpr int tries = 100;

QColor halfway(const QColor &from, const QColor &to)
{
    return QColor((from.red() + to.red()) / 2, (from.green() + to.green()) / 2, (from.blue() + to.blue()) / 2);
}

}

WindowColors::WindowColors(LWMainWindow *window, ShellPages *pages, const LWEnvironment *environment)
    : window(window), pages(pages), environment(environment)
{
}

void WindowColors::follow()
{
    if (!following) {
        following = true;
        connect(LWDefaults::shared(), &LWDefaults::valueChanged, this, [this](const QString &key) {
            if (key == themeKey)
                follow();
        });
    }
    const QString name = LWDefaults::shared()->stringForKey(themeKey);
    const LWTheme *theme = environment ? environment->themeNames().value(name) : nullptr;
    if (!theme) {
        qInfo("The window keeps its colours: theme %s is not installed", qPrintable(name));
        return;
    }
    askPage(QStringLiteral("ace/theme/") + theme->infoText(QStringLiteral("name")), ++generation, tries);
}

// The page answers "" until the theme is loaded and applied.
void WindowColors::askPage(const QString &themeId, int asked, int triesLeft)
{
    const QPointer<WindowColors> self(this);
    pages->evaluateInEditor(QStringLiteral("lw.themeColors('%1')").arg(themeId),
                            [self, themeId, asked, triesLeft](const QString &answer) {
                                if (!self || asked != self->generation)
                                    return;
                                if (!answer.isEmpty()) {
                                    self->apply(answer.toUtf8());
                                    return;
                                }
                                if (triesLeft <= 1) {
                                    qWarning("The editor never applied theme %s", qPrintable(themeId));
                                    return;
                                }
                                QTimer::singleShot(retryMilliseconds, self, [self, themeId, asked, triesLeft] {
                                    if (self)
                                        self->askPage(themeId, asked, triesLeft - 1);
                                });
                            });
}

void WindowColors::apply(const QByteArray &answer)
{
    const QJsonObject colours = QJsonDocument::fromJson(answer).object();
    const bool dark = colours.value(QStringLiteral("isDark")).toBool();
    QColor background = QColor::fromString(colours.value(QStringLiteral("background")).toString());
    QColor foreground = QColor::fromString(colours.value(QStringLiteral("foreground")).toString());
    if (!background.isValid() || !foreground.isValid()) {
        background = dark ? QColor(0x20, 0x20, 0x20) : QColor(Qt::white);
        foreground = dark ? QColor(0xe0, 0xe0, 0xe0) : QColor(Qt::black);
    }
    window->setPartsPalette(paletteFor(background, foreground, dark));
    window->tabs()->setColors(TabBarPalette::themed(background, foreground));
    emit applied();
}

QPalette WindowColors::paletteFor(const QColor &background, const QColor &foreground, bool dark)
{
    QPalette palette;
    const QColor raised = dark ? background.lighter(130) : background.darker(106);
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, role == QPalette::Button ? raised : background);
    palette.setColor(QPalette::AlternateBase, raised);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, foreground);
    palette.setColor(QPalette::Highlight, dark ? background.lighter(180) : background.darker(130));
    palette.setColor(QPalette::HighlightedText, foreground);
    palette.setColor(QPalette::PlaceholderText, halfway(foreground, background));
    palette.setColor(QPalette::Mid, raised);
    return palette;
}
