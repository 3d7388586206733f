#pragma once

class ShellDialogs;
class ShellOutline;
class ShellPages;
class ShellStatusBar;
class ShellTabBar;
class ShellWindow;

// The window's roles for code that no owner can hand them to, such as
// document nodes and static helpers. The window installs them once (test
// doubles do the same); each is null before that, and callers then skip the
// interface work rather than fail.
class ShellRoles
{
public:
    struct Set
    {
        ShellPages *pages = nullptr;
        ShellStatusBar *statusBar = nullptr;
        ShellDialogs *dialogs = nullptr;
        ShellOutline *outline = nullptr;
        ShellTabBar *tabBar = nullptr;
        ShellWindow *window = nullptr;
    };

    // Installs every role one object plays; an empty Set removes them.
    template <class Shell>
    static void installAll(Shell *shell)
    {
        install({shell, shell, shell, shell, shell, shell});
    }
    static void install(const Set &roles);
    static const Set &installed();

    static ShellPages *pages() { return installed().pages; }
    static ShellStatusBar *statusBar() { return installed().statusBar; }
    static ShellDialogs *dialogs() { return installed().dialogs; }
    static ShellOutline *outline() { return installed().outline; }
    static ShellTabBar *tabBar() { return installed().tabBar; }
    static ShellWindow *window() { return installed().window; }
};
