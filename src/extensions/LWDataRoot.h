#pragma once

#include <QString>

// Prepares the per-user data root from the shipped resources: the user folders
// are copied once and never overwritten; the replaceable "Data" tree is copied
// on the first run and again whenever the build number grows.
namespace LWDataRoot {

// Runs the set-up; answers whether a fresh "Data" tree was copied (first run
// or upgrade), in which case every bundle must be installed.
bool prepare();

// The build number stored in "version.txt" under the root; 0 when the text is
// not a number, -1 when the file is missing.
int storedBuildNumber();

}
