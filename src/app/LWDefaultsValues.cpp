#include "app/LWDefaultsValues.h"

namespace LWDefaultsValues {

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

}
