#pragma once

#include <QString>

// Where the defaults store lives: "Larkwood/Larkwood.conf" under the XDG
// config home. Earlier builds kept the same settings in "Larkwood.ini"
// beside it; that file is taken over once.
namespace LWSettingsFile {

QString path();

// Moves an older settings file to path() when path() does not exist yet,
// so that none of its values is lost.
void migrate();

// Keeps a copy of a settings file that is not text (NUL bytes or invalid
// UTF-8) beside it (".unreadable"): the store skips what it cannot read and
// would drop it on its next write.
void keepCopyIfDamaged();

}
