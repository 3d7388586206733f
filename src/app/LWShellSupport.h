#pragma once

#include <QString>

// The command-line launcher "lwood": installing it into ~/.local/bin and
// keeping "LW_ShellInstalled" in step with it.
namespace LWShellSupport {

// What the user is told after an install.
struct Report
{
    QString title;
    QString informativeText;
};

// The launcher of the data tree ("Data/bin/lwood" under the data root),
// else the one shipped in the resource folder.
QString source();
QString target();

// Sets "LW_ShellInstalled" to whether the launcher is in place.
void noteInstalledState();

// Copies the launcher into place (an existing file stays as it is), makes
// it executable, records the attempt in "LW_ShellInstalled" whatever the
// outcome, and answers what to tell the user.
Report install();

}
