#pragma once

#include <QString>

// Where the program finds its shipped resources and keeps its per-user data.
namespace LWPaths {

// Whether the process runs sandboxed: APP_SANDBOX_CONTAINER_ID is present in
// its environment, whatever its value (an empty value counts too).
bool isSandboxed();

// The per-user data root: $HOME when sandboxed, otherwise the XDG data home
// joined with "Larkwood".
QString dataRoot();

// The data root joined with a relative path.
QString dataPath(const QString &relative);

// The shipped resource folder (holding Data, User and helper scripts):
// $LARKWOOD_RESOURCES when set, else share/larkwood beside the executable's bin/.
QString resourceFolder();

// The resource folder joined with a relative path.
QString resourcePath(const QString &relative);

// The build number compiled into the program.
int buildNumber();

}
