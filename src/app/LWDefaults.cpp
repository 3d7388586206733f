#include "app/LWDefaults.h"

#include "app/LWDefaultsValues.h"
#include "app/LWSettingsFile.h"

namespace {

const QString fontNameKey = QStringLiteral("LW_FontName");
const QString fallbackFontName = QStringLiteral("Menlo");
const QString listItemKey = QStringLiteral("item");

QString checkedSettingsPath()
{
    LWSettingsFile::migrate();
    LWSettingsFile::keepCopyIfDamaged();
    return LWSettingsFile::path();
}

}

LWDefaults::LWDefaults(QObject *parent)
    : QObject(parent),
      store(checkedSettingsPath(), QSettings::IniFormat)
{
}

LWDefaults *LWDefaults::shared()
{
    static LWDefaults store;
    return &store;
}

void LWDefaults::registerDefaults(const QVariantMap &defaults)
{
    registered.insert(defaults);
}

bool LWDefaults::hasKey(const QString &key) const
{
    return store.contains(key) || holdsList(key) || registered.contains(key);
}

QVariant LWDefaults::objectForKey(const QString &key) const
{
    if (holdsList(key))
        return readList(key);
    if (!store.contains(key))
        return registered.value(key);
    const QVariant stored = store.value(key);
    if (LWDefaultsValues::fits(stored, registered.value(key)))
        return stored;
    reportUnfitValue(key, stored);
    return registered.value(key);
}

void LWDefaults::reportUnfitValue(const QString &key, const QVariant &stored) const
{
    if (reportedKeys.contains(key))
        return;
    reportedKeys.insert(key);
    qWarning("LWDefaults : the stored value \"%s\" of %s is not of its kind; its registered default applies",
             qUtf8Printable(stored.toString().left(80)), qUtf8Printable(key));
}

bool LWDefaults::boolForKey(const QString &key) const
{
    return LWDefaultsValues::toBool(objectForKey(key));
}

qint64 LWDefaults::integerForKey(const QString &key) const
{
    return LWDefaultsValues::toInteger(objectForKey(key));
}

QString LWDefaults::stringForKey(const QString &key) const
{
    return objectForKey(key).toString();
}

QStringList LWDefaults::arrayForKey(const QString &key) const
{
    return LWDefaultsValues::toStringList(objectForKey(key));
}

QVariantMap LWDefaults::dictionaryForKey(const QString &key) const
{
    return LWDefaultsValues::toMap(objectForKey(key));
}

QString LWDefaults::fontName() const
{
    const QString name = stringForKey(fontNameKey);
    return name.isEmpty() ? fallbackFontName : name;
}

void LWDefaults::setBool(const QString &key, bool value)
{
    setObject(key, value ? 1 : 0);
}

void LWDefaults::setInteger(const QString &key, qint64 value)
{
    setObject(key, value);
}

void LWDefaults::setString(const QString &key, const QString &value)
{
    setObject(key, value);
}

void LWDefaults::setObject(const QString &key, const QVariant &value)
{
    const QVariant before = objectForKey(key);
    store.remove(key);
    if (value.typeId() == QMetaType::QStringList)
        writeList(key, value.toStringList());
    else
        store.setValue(key, value);
    notifyIfChanged(key, before);
}

void LWDefaults::removeObjectForKey(const QString &key)
{
    const QVariant before = objectForKey(key);
    store.remove(key);
    notifyIfChanged(key, before);
}

QVariantMap LWDefaults::dictionaryRepresentation() const
{
    QVariantMap values;
    for (const QString &key : store.childKeys())
        values.insert(key, store.value(key));
    for (const QString &key : store.childGroups()) {
        if (holdsList(key))
            values.insert(key, readList(key));
    }
    return values;
}

// A string list is kept as the store's own array form (a "size" entry and one
// numbered entry per item), so that an empty list and a list of one item read
// back as lists.
void LWDefaults::writeList(const QString &key, const QStringList &list)
{
    store.beginWriteArray(key, static_cast<int>(list.size()));
    for (int index = 0; index < list.size(); ++index) {
        store.setArrayIndex(index);
        store.setValue(listItemKey, list.at(index));
    }
    store.endArray();
}

bool LWDefaults::holdsList(const QString &key) const
{
    return store.contains(key + QStringLiteral("/size"));
}

QStringList LWDefaults::readList(const QString &key) const
{
    auto &reader = const_cast<QSettings &>(store);
    QStringList list;
    const int size = reader.beginReadArray(key);
    for (int index = 0; index < size; ++index) {
        reader.setArrayIndex(index);
        list << reader.value(listItemKey).toString();
    }
    reader.endArray();
    return list;
}

void LWDefaults::synchronize()
{
    store.sync();
    if (store.status() == QSettings::AccessError) {
        qWarning("LWDefaults : could not write \"%s\"", qUtf8Printable(store.fileName()));
    } else if (store.status() == QSettings::FormatError && !unreadableLinesReported) {
        // The status stays set for the life of the store; say it once.
        unreadableLinesReported = true;
        qWarning("LWDefaults : \"%s\" held lines that could not be read; they are left out",
                 qUtf8Printable(store.fileName()));
    }
}

QVariant LWDefaults::comparable(const QString &key, const QVariant &value) const
{
    switch (registered.value(key).typeId()) {
    case QMetaType::Bool:
        return LWDefaultsValues::toBool(value);
    case QMetaType::Int:
    case QMetaType::LongLong:
        return LWDefaultsValues::toInteger(value);
    case QMetaType::QStringList:
        return LWDefaultsValues::toStringList(value);
    case QMetaType::QVariantMap:
        return LWDefaultsValues::toMap(value);
    default:
        break;
    }
    switch (value.typeId()) {
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
    case QMetaType::QVariantMap:
        return value;
    default:
        return value.toString();
    }
}

void LWDefaults::notifyIfChanged(const QString &key, const QVariant &before)
{
    if (comparable(key, before) != comparable(key, objectForKey(key)))
        emit valueChanged(key);
}
