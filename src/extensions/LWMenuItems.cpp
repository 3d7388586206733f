#include "extensions/LWMenuItems.h"

#include <QObject>

namespace LWMenuItems {

QVariantMap item(const QString &title, const QString &selector, const QVariant &object,
                 const QString &equivalent)
{
    return {{QStringLiteral("title"), title},
            {QStringLiteral("selector"), selector},
            {QStringLiteral("object"), object},
            {QStringLiteral("equivalent"), equivalent}};
}

QVariantMap separator()
{
    return item(QStringLiteral("--"), QString(), QString(), QString());
}

QVariantMap submenu(const QString &title, const QVariantList &children)
{
    return {{QStringLiteral("title"), title}, {QStringLiteral("children"), children}};
}

bool isSeparator(const QVariantMap &entry)
{
    return entry.value(QStringLiteral("title")).toString() == QLatin1String("--");
}

bool isSubmenu(const QVariantMap &entry)
{
    return entry.contains(QStringLiteral("children"));
}

QVariant objectValue(QObject *bundle)
{
    return bundle ? QVariant::fromValue(bundle) : QVariant();
}

}
