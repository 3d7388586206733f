#pragma once

#include <QString>

// Makes a value safe to place inside a quoted string of a script evaluated in
// the editor page, in one pass: backslash, double quote and single quote get a
// backslash before them, and line feed and carriage return both become "\n"
// (so a CR LF pair reads as two line breaks). Nothing else is touched.
QString escapedForJavascript(const QString &value);
