#pragma once

#include <QStringList>
#include <QVariant>
#include <QVariantMap>

// Reading stored values in the type a caller expects. An INI file gives back
// scalars as strings, a one-item list as a plain string and an empty list as
// an invalid value; these conversions undo that.
namespace LWDefaultsValues {

bool toBool(const QVariant &value);
qint64 toInteger(const QVariant &value);
QStringList toStringList(const QVariant &value);
QVariantMap toMap(const QVariant &value);

// Whether a stored value can stand for the registered one: a boolean or a
// number for a boolean, a number for an integer, a scalar for a string, a
// scalar or list for a list, a dictionary for a dictionary. Anything fits a
// key without a registered value.
bool fits(const QVariant &value, const QVariant &registered);

}
