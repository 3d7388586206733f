#pragma once

#include <QString>
#include <QVariant>

// The editor theme module ("theme-<name>.js") that a theme bundle compiles to,
// and the rewriting that turns compiled LESS into the editor's class names.
namespace LWThemeModule {

// The module text: the template filled with the identifier, the dark flag and
// the style text (inserted unescaped, line feeds removed).
QString moduleText(const QString &identifier, const QVariant &dark, const QString &css);

// The text form of the manifest's "dark" value: "1"/"0" for booleans, the
// number's text for numbers, "0" when absent.
QString darkLiteral(const QVariant &dark);

// Compiled LESS made to fit the editor: every ".word" class selector gains the
// "ace_" prefix, then "#<identifier>" (identifier used as a regular
// expression) becomes ".ace-<identifier>". Both matches ignore case.
QString rewriteCompiledLess(const QString &css, const QString &identifier);

}
