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
    // The completion may outlive this theme object, so it carries copies. The
    // run is alive while its completion runs, so the weak pointer holds then.
    const std::shared_ptr<LWTerm> run = LWTerm::create();
    const std::weak_ptr<LWTerm> compiler = run;
    run->exec({lessc, lessPath}, {}, nullptr, [compiler, identifier, dark, target, lessPath](const QString &output) {
        // A failed compile prints the compiler's message, not a style sheet:
        // writing that out would give the editor a broken module.
        const std::shared_ptr<LWTerm> ended = compiler.lock();
        if (!ended || ended->exitStatus() != 0) {
            qWarning("LWTheme : install :: lessc could not compile theme \"%s\" (%s), so it is not installed: %s",
                     qUtf8Printable(identifier), qUtf8Printable(lessPath), qUtf8Printable(output.trimmed()));
            return;
        }
        const QString css = LWThemeModule::rewriteCompiledLess(output, identifier);
        LWTextFiles::writeAtomically(target, LWThemeModule::moduleText(identifier, dark, css));
    });
}
