#pragma once

#include <QString>

// Fills the call-back scripts the page hands to the backend. A call-back is a
// format with at most one directive: "%@" takes a string, "%f" a number and
// "%d", "%i", "%ld" or "%li" an integer; "%%" is a percent sign. Directives
// that do not match the value are left as they stand.
namespace CallbackFormat {

QString filled(const QString &format, const QString &text);
QString filled(const QString &format, double number);
QString filled(const QString &format, int integer);

}
