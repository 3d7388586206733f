#pragma once

#include <QHash>
#include <QString>
#include <QVariantMap>

#include <optional>

class LWSpec;

// Chooses a document's language specification from its file name: the
// user's extension table (only for installed specifications), then the
// registry's extension table by extension, then by whole file name. Takes a
// snapshot of the tables when made, so one chooser can serve a whole folder
// import on any thread.
class LWSpecChooser
{
public:
    enum class CoffeeMarkdown { Recognised, Ignored };

    // With the user's table from the settings, or with the given one.
    LWSpecChooser();
    explicit LWSpecChooser(const QVariantMap &userExtensions);

    // The language specification for the path, or null when no table knows it.
    LWSpec *specForPath(const QString &path, CoffeeMarkdown coffee = CoffeeMarkdown::Recognised) const;
    std::optional<QString> specNameForPath(const QString &path) const;

    // The installed specification of that name, or null.
    static LWSpec *specNamed(const QString &specName);
    // The editor mode of a specification: the "name" entry of its info.
    static QString modeOf(const LWSpec *spec);

private:
    QVariantMap userExtensions;
    QHash<QString, LWSpec *> specsByName;
    QHash<QString, LWSpec *> specsByExtension;
};
