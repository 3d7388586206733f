#pragma once

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellTabBar.h"
#include "app/roles/ShellWindow.h"

// The window side of the application as the core library sees it, made of
// small roles: the pages, the status bar, dialogs, the outline, the tab bar
// and the window frame. Code takes only the role it needs, handed in by its
// owner or, where no owner can, from ShellRoles. The UI library implements
// every role; tests of the core library install a recording double.
class LWShell : public ShellPages,
                public ShellStatusBar,
                public ShellDialogs,
                public ShellOutline,
                public ShellTabBar,
                public ShellWindow
{
public:
    ~LWShell() override = default;
};
