#pragma once

#include <QObject>

#include <functional>

class LWDocumentManager;
class ShellOutline;
class TabBarView;
class TabCell;

// Links the tab bar to the documents: a tab the user activates moves the
// editor to its document and selects that document in the sidebar.
class LWTabBarController : public QObject
{
    Q_OBJECT

public:
    using Manager = std::function<LWDocumentManager &()>;

    LWTabBarController(TabBarView &tabBar, Manager manager, ShellOutline &outline);

    void tabDidActived(TabCell *tab);

private:
    Manager manager;
    ShellOutline &outline;
};
