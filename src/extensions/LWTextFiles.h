#pragma once

#include <QString>

#include <optional>

// UTF-8 text files as the extension bundles read and write them.
namespace LWTextFiles {

// The file's contents decoded as UTF-8; nothing when it cannot be read.
std::optional<QString> readUtf8(const QString &path);

// Writes text as UTF-8 through a temporary file renamed into place, creating
// the parent folder when needed. Failures are logged; answers success.
bool writeAtomically(const QString &path, const QString &text);

// Whether name can serve as one component of a generated file name (not
// empty, no folder separators, not "." or "..").
bool isSafeFileName(const QString &name);

}
