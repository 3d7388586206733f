#pragma once

#include <QString>

// Prepares the per-user data root from the shipped resources: the user folders
// are copied once and never overwritten; the replaceable "Data" tree is copied
// on the first run and again whenever the build number grows.
namespace LWDataRoot {

// Runs the set-up; answers whether a fresh "Data" tree was copied (first run
// or upgrade), in which case every bundle must be installed.
bool prepare();

}
