#pragma once

#include <QProcessEnvironment>
#include <QVariantMap>

// Environments for child processes built from a dictionary of entries (as the
// editor page passes them). Values that are not text or numbers are logged and
// left out.
namespace ChildEnvironment {

// Only the given entries.
QProcessEnvironment fromEntries(const QVariantMap &entries);

// "PATH" set to the registry's login PATH, then the given entries (a "PATH"
// entry replaces it). Nothing of this process's own environment is inherited.
QProcessEnvironment withLoginPath(const QVariantMap &entries);

}
