#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

// What every extension bundle (theme, language specification, plugin) has in
// common: its folder, the name taken from that folder and its parsed
// "info.json" manifest.
class LWBundle : public QObject
{
    Q_OBJECT

public:
    QString path() const { return bundlePath; }
    QString name() const { return bundleName; }
    QVariantMap info() const { return manifest; }

    // The manifest value under key as text ("" when absent).
    QString infoText(const QString &key) const;

    // Installs the bundle's generated files into the editor tree.
    virtual void install() = 0;

    // The last path component without its extension ("Dusk.lwTheme" gives "Dusk").
    static QString nameFromPath(const QString &path);

    // The JSON file at path read as UTF-8 and parsed with the comment-tolerant
    // reader; an invalid QVariant (and a log line) when the file is missing,
    // not UTF-8 or malformed.
    static QVariant readJSONFile(const QString &path);

protected:
    // Sets path and name and reads "info.json" from the folder.
    explicit LWBundle(const QString &path);

private:
    QString bundlePath;
    QString bundleName;
    QVariantMap manifest;
};
