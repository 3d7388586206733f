#pragma once

#include <QString>
#include <QStringList>

class LWMainWindow;

// What the window looked like when the application last quit, kept in the
// defaults store beside the remembered workspace: the window's frame, the
// sidebar's split, the files open in tabs (in order) and the selected one.
namespace WindowSession {

void save(const LWMainWindow &window, const QStringList &openTabs, const QString &selectedTab);
// False when no frame was kept (the first run).
bool restoreFrame(LWMainWindow &window);
QStringList openTabs();
QString selectedTab();

}
