#pragma once

#include <QString>
#include <QVariant>

// Encoded key equivalents: modifiers, "+", key ("$+@+S" style: "$" Shift,
// "@" Command, "^" Control, "~" Option), or a key alone ("F5").
namespace LWKeyShortcut {

// Modifier mask flags of the encoded form.
enum Modifier : int {
    Shift = 0x20000,
    Control = 0x40000,
    Option = 0x80000,
    Command = 0x100000,
};

// Splits at every "+": with one part the lower-cased text is the key; else the
// key is the last part lower-cased and the modifiers come from the characters
// of the first part (middle parts and other characters are ignored). Answers
// {"keyEquivalent": text, "keyModifier": mask}.
QVariantMap decodeKeyShortcut(const QString &shortcut);

}
