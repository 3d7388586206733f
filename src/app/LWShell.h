#pragma once

#include "app/roles/ShellDialogs.h"
#include "app/roles/ShellOutline.h"
#include "app/roles/ShellPages.h"
#include "app/roles/ShellStatusBar.h"
#include "app/roles/ShellTabBar.h"
#include "app/roles/ShellWindow.h"

// The window side of the application as the core library sees it, made of
// small roles: the pages, the status bar, dialogs, the outline, the tab bar
// and the window frame. New code takes only the role it needs, handed in by
// its owner; instance() remains for code that has not been given its roles.
// The UI library implements every role; tests of the core library install a
// recording double of the role under test.
class LWShell : public ShellPages,
                public ShellStatusBar,
                public ShellDialogs,
                public ShellOutline,
                public ShellTabBar,
                public ShellWindow
{
public:
    ~LWShell() override = default;

    // The shell in use, or nullptr before one is installed (callers then skip
    // interface work rather than fail).
    static LWShell *instance();
    static void setInstance(LWShell *shell);
};
