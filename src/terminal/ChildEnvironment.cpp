#include "terminal/ChildEnvironment.h"

#include "extensions/LWEnvironment.h"

#include <QDebug>

namespace ChildEnvironment {

namespace {
void insertEntries(QProcessEnvironment &environment, const QVariantMap &entries)
{
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        const QVariant &value = entry.value();
        const bool textual = value.typeId() == QMetaType::QString || value.typeId() == QMetaType::Bool
                             || value.canConvert<double>();
        if (!textual || value.isNull()) {
            qWarning().noquote() << QStringLiteral("Environment entry %1 is not text; left out").arg(entry.key());
            continue;
        }
        environment.insert(entry.key(), value.toString());
    }
}
}

QProcessEnvironment fromEntries(const QVariantMap &entries)
{
    QProcessEnvironment environment;
    insertEntries(environment, entries);
    return environment;
}

QProcessEnvironment withLoginPath(const QVariantMap &entries)
{
    QProcessEnvironment environment;
    const LWEnvironment *registry = LWEnvironment::shared();
    environment.insert(QStringLiteral("PATH"), registry ? registry->envPath() : QString());
    insertEntries(environment, entries);
    return environment;
}

}
