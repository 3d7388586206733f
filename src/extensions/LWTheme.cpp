#include "extensions/LWTheme.h"

#include "app/LWPaths.h"
#include "extensions/LWTextFiles.h"
#include "extensions/LWThemeModule.h"
#include "terminal/LWTerm.h"

#include <QFileInfo>

LWTheme *LWTheme::themeFromPath(const QString &path)
{
    return new LWTheme(path);
}

QString LWTheme::modulePath() const
{
    return LWPaths::dataPath(QStringLiteral("Data/Html/ace/theme-%1.js").arg(infoText(QStringLiteral("name"))));
}

void LWTheme::install()
{
    if (!LWTextFiles::isSafeFileName(infoText(QStringLiteral("name")))) {
        qWarning("LWTheme : install :: no usable theme name in %s", qUtf8Printable(path()));
        return;
    }
    const QString lessPath = path() + QStringLiteral("/style.less");
    if (QFileInfo::exists(lessPath)) {
        compileLess(lessPath);
        return;
    }
    const auto css = LWTextFiles::readUtf8(path() + QStringLiteral("/style.css"));
    if (!css) {
        qWarning("LWTheme : install :: no style.less or style.css in %s", qUtf8Printable(path()));
        return;
    }
    LWTextFiles::writeAtomically(modulePath(), LWThemeModule::moduleText(infoText(QStringLiteral("name")),
                                                                          info().value(QStringLiteral("dark")), *css));
}

void LWTheme::compileLess(const QString &lessPath)
{
    const QString lessc = LWPaths::dataPath(QStringLiteral("Data/Bin/node/lib/node_modules/less/bin/lessc"));
    const QString identifier = infoText(QStringLiteral("name"));
    const QVariant dark = info().value(QStringLiteral("dark"));
    const QString target = modulePath();
    // The completion may outlive this theme object, so it carries copies.
    LWTerm::create()->exec({lessc, lessPath}, {}, nullptr, [identifier, dark, target, lessPath](const QString &output) {
        // A failed compile still writes what came out, as the editor expects a module.
        if (!output.contains(QLatin1Char('{')))
            qWarning("LWTheme : install :: lessc produced no style for %s: %s", qUtf8Printable(lessPath),
                     qUtf8Printable(output.left(200)));
        const QString css = LWThemeModule::rewriteCompiledLess(output, identifier);
        LWTextFiles::writeAtomically(target, LWThemeModule::moduleText(identifier, dark, css));
    });
}
