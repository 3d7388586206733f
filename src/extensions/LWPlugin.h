#pragma once

#include "extensions/LWBundle.h"

// A plugin bundle (".lwPlugin"): a manifest and a CoffeeScript program that
// the editor page's plugin runtime compiles and runs.
class LWPlugin : public LWBundle
{
    Q_OBJECT

public:
    static LWPlugin *pluginFromPath(const QString &path);

    // The manifest's "shortcut" in its encoded form ("" for none).
    QString shortcut() const { return infoText(QStringLiteral("shortcut")); }

    // Whether the manifest forbids running in a sandboxed process.
    bool needsNoSandbox() const { return info().contains(QStringLiteral("nosandbox")); }

    // Whether the plugin may run in this process.
    bool mayRun() const;

    // Hands the script to the editor page's runtime, or alerts when the
    // bundle has no "script.coffee".
    void execute() const;

    // Plugins generate nothing for the editor tree.
    void install() override {}

private:
    using LWBundle::LWBundle;
    // The script string that starts the plugin in the page.
    QString runScript(const QString &scriptSource) const;
};
