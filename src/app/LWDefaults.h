#pragma once

#include <QObject>
#include <QSet>
#include <QSettings>
#include <QStringList>
#include <QVariantMap>

// The per-user defaults store: an INI file under the XDG config home
// ("Larkwood/Larkwood.conf") plus the registered fallback values that a key
// reads while the store holds nothing for it, or holds a value that is not
// of the registered value's kind (a hand-edited or damaged file). Emits valueChanged when a write
// or removal changes what a key reads.
class LWDefaults : public QObject
{
    Q_OBJECT

public:
    explicit LWDefaults(QObject *parent = nullptr);

    // The store the application shares.
    static LWDefaults *shared();

    // Adds fallback values, replacing earlier ones for the same keys.
    void registerDefaults(const QVariantMap &defaults);

    // True when the store or the registered values hold the key.
    bool hasKey(const QString &key) const;
    // The stored value when it fits the registered one's kind, else the
    // registered one, else an invalid value.
    QVariant objectForKey(const QString &key) const;
    // Any non-zero number and "true" read as true.
    bool boolForKey(const QString &key) const;
    qint64 integerForKey(const QString &key) const;
    QString stringForKey(const QString &key) const;
    QStringList arrayForKey(const QString &key) const;
    QVariantMap dictionaryForKey(const QString &key) const;
    // "LW_FontName", with "Menlo" when it is missing or empty.
    QString fontName() const;

    // Booleans are written as the integers 0 and 1; string lists as lists
    // (an empty list reads back empty, not as a missing value).
    void setBool(const QString &key, bool value);
    void setInteger(const QString &key, qint64 value);
    void setString(const QString &key, const QString &value);
    void setObject(const QString &key, const QVariant &value);
    void removeObjectForKey(const QString &key);

    // The keys the store itself holds, with their values (registered
    // fallbacks are not included).
    QVariantMap dictionaryRepresentation() const;
    void synchronize();

signals:
    void valueChanged(const QString &key);

private:
    // The value in the form of the key's registered type, so that a stored
    // "1" and a registered true compare equal.
    QVariant comparable(const QString &key, const QVariant &value) const;
    void notifyIfChanged(const QString &key, const QVariant &before);
    // Logs once per key that its stored value was passed over.
    void reportUnfitValue(const QString &key, const QVariant &stored) const;
    void writeList(const QString &key, const QStringList &list);
    bool holdsList(const QString &key) const;
    QStringList readList(const QString &key) const;

    QSettings store;
    QVariantMap registered;
    mutable QSet<QString> reportedKeys;
    bool unreadableLinesReported = false;
};
