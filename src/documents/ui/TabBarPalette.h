#pragma once

#include <QColor>

// The colours of the document tab bar, in one place so that a theme can
// recolour the bar by handing it a new set.
struct TabBarPalette
{
    static QColor grey(double level) { return QColor::fromRgbF(level, level, level); }

    QColor bgColor = grey(0.6);
    QColor tabBGColor = grey(0.68);
    // Also the line along the bar's bottom edge, joining the active tab to the editor.
    QColor tabActivedBGColor = Qt::white;
    QColor tabBorderColor = grey(0.53);
    QColor tabTitleColor = Qt::black;
    QColor tabActivedTitleColor = Qt::black;
    // The close crosses and the tab-list control.
    QColor smallControlColor = grey(0.53);

    // The bar in a theme's colours: its greys become the same steps from the
    // theme's background towards its foreground (white and black give the
    // colours above), and the active tab takes the editor's background.
    static TabBarPalette themed(const QColor &background, const QColor &foreground)
    {
        const auto towards = [&](double step) {
            return QColor::fromRgbF(background.redF() + (foreground.redF() - background.redF()) * step,
                                    background.greenF() + (foreground.greenF() - background.greenF()) * step,
                                    background.blueF() + (foreground.blueF() - background.blueF()) * step);
        };
        TabBarPalette palette;
        palette.bgColor = towards(0.4);
        palette.tabBGColor = towards(0.32);
        palette.tabActivedBGColor = background;
        palette.tabBorderColor = towards(0.47);
        palette.tabTitleColor = foreground;
        palette.tabActivedTitleColor = foreground;
        palette.smallControlColor = towards(0.47);
        return palette;
    }
};
