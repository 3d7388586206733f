#pragma once

#include "extensions/LWBundle.h"

#include <memory>
#include <vector>

class LWPlugin;

// A language specification bundle (".lwSpec"): the editor mode, snippets and
// worker scripts of one language, the file extensions that select it, its
// file templates and its own plugins with their menu index.
class LWSpec : public LWBundle
{
    Q_OBJECT

public:
    static LWSpec *specFromPath(const QString &path);
    ~LWSpec() override;

    // True when the bundle has no "info.json": never installed nor listed in menus.
    bool ignore() const { return ignored; }

    // Template records: "name" (file name without extension), "filename", "source".
    QVariantList templates() const { return templateRecords; }

    QList<LWPlugin *> plugins() const;

    // The parsed "plugins/index.json" (invalid when absent or malformed).
    QVariant pluginsIndex() const { return index; }

    // The manifest's "extensions" entries.
    QStringList fileExtensions() const;

    // Copies mode.js, snippets.js and worker.js into the editor tree under the
    // names the editor's mode loader expects.
    void install() override;

    // A template record for the file at path.
    static QVariantMap templateRecord(const QString &path);

private:
    explicit LWSpec(const QString &path);
    void loadTemplates();
    void loadPlugins();

    bool ignored = false;
    QVariantList templateRecords;
    std::vector<std::unique_ptr<LWPlugin>> ownPlugins;
    QVariant index;
};
