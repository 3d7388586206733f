#include "app/roles/ShellRoles.h"

namespace {
ShellRoles::Set installedRoles;
}

void ShellRoles::install(const Set &roles)
{
    installedRoles = roles;
}

const ShellRoles::Set &ShellRoles::installed()
{
    return installedRoles;
}
