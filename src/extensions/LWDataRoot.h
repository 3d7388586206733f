#pragma once

#include <QString>

// Prepares the per-user data root from the shipped resources: the user folders
// are copied once and never overwritten; the replaceable "Data" tree is copied
// on the first run and again whenever the build number grows.
namespace LWDataRoot {

// Creates the root and copies the missing user folders; answers whether a
// fresh "Data" tree is needed (first run or upgrade).
bool prepare();

// Copies the shipped "Data" tree beside the root's one and swaps it in, so a
// half-made copy never stands in place; answers whether it succeeded.
bool copyData();

// Records the running build number, marking the "Data" tree complete: until
// then every start copies it afresh.
void markComplete();

}
