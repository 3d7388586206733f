#pragma once

#include "extensions/LWBundle.h"

// A theme bundle (".lwTheme"): a manifest ("name", "dark") and a style sheet in
// LESS ("style.less", compiled by lessc) or plain CSS ("style.css"), installed
// as the editor module "theme-<name>.js".
class LWTheme : public LWBundle
{
    Q_OBJECT

public:
    static LWTheme *themeFromPath(const QString &path);

    // Writes the editor module: at once for CSS, when lessc has finished for
    // LESS (the module is written from the compiler's completion). When lessc
    // fails, its message is logged with the theme's name and nothing is written.
    void install() override;

private:
    using LWBundle::LWBundle;
    // Where the module of this theme is written.
    QString modulePath() const;
    void compileLess(const QString &lessPath);
};
