#include "extensions/LWThemeModule.h"

#include <QRegularExpression>
#include <QtDebug>

namespace LWThemeModule {

namespace {

const QString blanks(26, QLatin1Char(' '));

QString moduleTemplate()
{
    return QStringLiteral("ace.define(\"ace/theme/%NAME%\", [ \"require\", \"exports\", \"module\", \"ace/lib/dom\" ], function(e, t, n) {")
        + blanks + QStringLiteral("t.isDark = %DARK%, t.cssClass = \"ace-%NAME%\", t.cssText = \"%CSS%\";")
        + blanks + QStringLiteral("var r = e(\"../lib/dom\");")
        + blanks + QStringLiteral("r.importCssString(t.cssText, t.cssClass);")
        + blanks + QStringLiteral("});");
}

}

QString darkLiteral(const QVariant &dark)
{
    if (!dark.isValid() || dark.isNull())
        return QStringLiteral("0");
    if (dark.typeId() == QMetaType::Bool)
        return dark.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    return dark.toString();
}

QString moduleText(const QString &identifier, const QVariant &dark, const QString &css)
{
    QString text = moduleTemplate();
    text.replace(QStringLiteral("%NAME%"), identifier);
    text.replace(QStringLiteral("%DARK%"), darkLiteral(dark));
    QString style = css;
    style.remove(QLatin1Char('\n'));
    text.replace(QStringLiteral("%CSS%"), style);
    return text;
}

QString rewriteCompiledLess(const QString &css, const QString &identifier)
{
    static const QRegularExpression classSelector(QStringLiteral("\\.([a-z]+)"),
                                                  QRegularExpression::CaseInsensitiveOption);
    QString text = css;
    text.replace(classSelector, QStringLiteral(".ace_\\1"));
    const QRegularExpression root(QStringLiteral("(#%1)").arg(identifier),
                                  QRegularExpression::CaseInsensitiveOption);
    if (root.isValid())
        text.replace(root, QStringLiteral(".ace-%1").arg(identifier));
    else
        qWarning("LWTheme : install :: theme name is not a usable pattern: %s", qUtf8Printable(identifier));
    return text;
}

}
