#include "app/LWShell.h"

namespace {
LWShell *installedShell = nullptr;
}

LWShell *LWShell::instance()
{
    return installedShell;
}

void LWShell::setInstance(LWShell *shell)
{
    installedShell = shell;
}
