#pragma once

#include <QString>
#include <QStringList>

// The program's command line, read before any window or display is needed:
// "--help" and "--version" are answered with text to print, and the program
// then ends without starting its window.
namespace LWCommandLine {

// The text asked for by the arguments (the program's name first), or an
// empty string when the window should start.
QString answerFor(const QStringList &arguments);

QString helpText();
QString versionText();

}
