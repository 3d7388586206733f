#include "app/LWDefaultsValues.h"

namespace LWDefaultsValues {

namespace {

bool isScalar(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
    case QMetaType::QVariantMap:
        return false;
    default:
        return value.isValid();
    }
}

bool isNumber(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return true;
    bool number = false;
    value.toString().trimmed().toDouble(&number);
    return number;
}

bool isBoolean(const QVariant &value)
{
    const QString text = value.toString().trimmed();
    return isNumber(value) || text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0
        || text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0;
}

}

qint64 toInteger(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? 1 : 0;
    const QString text = value.toString().trimmed();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return 1;
    bool isNumber = false;
    const qint64 integer = text.toLongLong(&isNumber);
    if (isNumber)
        return integer;
    return static_cast<qint64>(text.toDouble());
}

bool toBool(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    const QString text = value.toString().trimmed();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return true;
    return text.toDouble() != 0.0;
}

QStringList toStringList(const QVariant &value)
{
    if (!value.isValid())
        return {};
    if (value.typeId() == QMetaType::QString)
        return {value.toString()};
    return value.toStringList();
}

QVariantMap toMap(const QVariant &value)
{
    return value.toMap();
}

bool fits(const QVariant &value, const QVariant &registered)
{
    switch (registered.typeId()) {
    case QMetaType::Bool:
        return isBoolean(value);
    case QMetaType::Int:
    case QMetaType::LongLong:
        return isNumber(value);
    case QMetaType::QString:
        return isScalar(value);
    case QMetaType::QStringList:
        return !value.isValid() || isScalar(value) || value.typeId() == QMetaType::QStringList
            || value.typeId() == QMetaType::QVariantList;
    case QMetaType::QVariantMap:
        return !value.isValid() || value.typeId() == QMetaType::QVariantMap;
    default:
        return true;
    }
}

}
