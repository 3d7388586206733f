#pragma once

#include <QString>

// Makes a value safe to place inside a quoted string of a script evaluated in
// the editor page: escapes backslash, line feed, carriage return, double quote
// and single quote, in that order (backslash first, so the escapes added for
// the others are not escaped again).
QString escapedForJavascript(const QString &value);
