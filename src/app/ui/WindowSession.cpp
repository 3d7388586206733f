#include "app/ui/WindowSession.h"

#include "app/LWDefaults.h"
#include "app/ui/LWMainWindow.h"

namespace WindowSession {

namespace {

const QString geometryKey = QStringLiteral("LW_WindowGeometry");
const QString splitKey = QStringLiteral("LW_SplitSizes");
const QString tabsKey = QStringLiteral("LW_OpenTabs");
const QString selectedKey = QStringLiteral("LW_SelectedTab");

}

void save(const LWMainWindow &window, const QStringList &openTabs, const QString &selectedTab)
{
    LWDefaults *defaults = LWDefaults::shared();
    defaults->setObject(geometryKey, window.saveGeometry());
    const QList<int> sizes = window.sidebarSplitSizes();
    // A hidden sidebar has no width worth keeping; the last visible one stays.
    if (sizes.size() == 2 && sizes.first() > 0)
        defaults->setObject(splitKey, QStringList{QString::number(sizes.at(0)), QString::number(sizes.at(1))});
    defaults->setObject(tabsKey, openTabs);
    defaults->setString(selectedKey, selectedTab);
}

bool restoreFrame(LWMainWindow &window)
{
    const QStringList sizes = LWDefaults::shared()->arrayForKey(splitKey);
    if (sizes.size() == 2 && sizes.first().toInt() > 0)
        window.setSidebarSplitSizes({sizes.at(0).toInt(), sizes.at(1).toInt()});
    const QByteArray geometry = LWDefaults::shared()->objectForKey(geometryKey).toByteArray();
    return !geometry.isEmpty() && window.restoreGeometry(geometry);
}

QStringList openTabs()
{
    return LWDefaults::shared()->arrayForKey(tabsKey);
}

QString selectedTab()
{
    return LWDefaults::shared()->stringForKey(selectedKey);
}

}
