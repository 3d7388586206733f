#pragma once

#include <QString>

// The local socket on which the running editor takes requests from later
// starts of the program: one per user and per session (under the runtime
// folder when there is one, so separate sessions never meet).
namespace LWInstanceChannel {

QString socketName();

}
