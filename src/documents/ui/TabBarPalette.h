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
};
