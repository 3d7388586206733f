#include "extensions/LWTheme.h"
#include "extensions/LWThemeModule.h"
#include "support/ExtensionTree.h"
#include "support/RecordingShell.h"

#include <QtTest>

namespace {

const QByteArray blanks(26, ' ');

QStringList warnings;

void recordWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtWarningMsg)
        warnings.append(message);
}

QByteArray expectedModule(const QByteArray &name, const QByteArray &dark, const QByteArray &css)
{
    return "ace.define(\"ace/theme/" + name + "\", [ \"require\", \"exports\", \"module\", \"ace/lib/dom\" ], function(e, t, n) {"
        + blanks + "t.isDark = " + dark + ", t.cssClass = \"ace-" + name + "\", t.cssText = \"" + css + "\";"
        + blanks + "var r = e(\"../lib/dom\");"
        + blanks + "r.importCssString(t.cssText, t.cssClass);"
        + blanks + "});";
}

std::unique_ptr<LWTheme> installedTheme(const ExtensionTree &tree, const QString &folder)
{
    std::unique_ptr<LWTheme> theme(LWTheme::themeFromPath(tree.dataRoot() + "/Data/Themes/" + folder));
    theme->install();
    return theme;
}

}

class tst_LWTheme : public QObject
{
    Q_OBJECT

private slots:
    void cssThemeModuleBytes();
    void lessThemeIsCompiledAndRewritten();
    void rewritingOrderAndRawNamePattern();
    void missingSourcesOrNameWriteNothing();
};

void tst_LWTheme::cssThemeModuleBytes()
{
    ExtensionTree tree;
    tree.writeData("Data/Themes/Dusk.lwTheme/info.json", "{\"name\": \"dusk\", \"dark\": true}");
    tree.writeData("Data/Themes/Dusk.lwTheme/style.css", ".ace-dusk .ace_keyword {\n  color: #f00;\n}\n");
    installedTheme(tree, "Dusk.lwTheme");
    QCOMPARE(tree.readData("Data/Html/ace/theme-dusk.js"),
             expectedModule("dusk", "1", ".ace-dusk .ace_keyword {  color: #f00;}"));
}

void tst_LWTheme::lessThemeIsCompiledAndRewritten()
{
    ExtensionTree tree;
    RecordingShell shell;
    QVERIFY(QFile::link(tree.shipped() + "/Data/Bin", tree.dataRoot() + "/Data/Bin")
            || QDir().mkpath(tree.dataRoot() + "/Data") && QFile::link(tree.shipped() + "/Data/Bin", tree.dataRoot() + "/Data/Bin"));
    tree.writeData("Data/Themes/Sample.lwTheme/info.json", "{\"name\": \"sample\", \"dark\": false}");
    tree.writeData("Data/Themes/Sample.lwTheme/style.less",
                   "@ink: #102030;\n#sample { color: @ink; .keyword { width: 0.5px; } }\n");
    tree.writeData("Data/Themes/Sample.lwTheme/style.css", ".ignored {}");
    installedTheme(tree, "Sample.lwTheme");
    QTRY_VERIFY_WITH_TIMEOUT(tree.existsInData("Data/Html/ace/theme-sample.js"), 20000);
    QCOMPARE(tree.readData("Data/Html/ace/theme-sample.js"),
             expectedModule("sample", "0", ".ace-sample {  color: #102030;}.ace-sample .ace_keyword {  width: 0.5px;}"));

    // A failed compile is logged with the compiler's message and writes nothing.
    tree.writeData("Data/Themes/Broken.lwTheme/info.json", "{\"name\": \"broken\"}");
    tree.writeData("Data/Themes/Broken.lwTheme/style.less", "#broken { color: @missing; ");
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(recordWarnings);
    installedTheme(tree, "Broken.lwTheme");
    QTRY_VERIFY_WITH_TIMEOUT(!warnings.filter("lessc could not compile theme \"broken\"").isEmpty(), 20000);
    qInstallMessageHandler(previous);
    QVERIFY2(warnings.filter("could not compile").first().contains("missing"), qPrintable(warnings.join('\n')));
    QVERIFY(!tree.existsInData("Data/Html/ace/theme-broken.js"));
}

void tst_LWTheme::rewritingOrderAndRawNamePattern()
{
    // Class rewriting runs first, so a root written as a class gains the token prefix.
    QCOMPARE(LWThemeModule::rewriteCompiledLess(".dusk .Keyword { opacity: 0.5 }", "dusk"),
             QString(".ace_dusk .ace_Keyword { opacity: 0.5 }"));
    QCOMPARE(LWThemeModule::rewriteCompiledLess("#DUSK {}", "dusk"), QString(".ace-dusk {}"));
    // The name is a pattern: "a.c" also matches "#abc".
    QCOMPARE(LWThemeModule::rewriteCompiledLess("#abc {}", "a.c"), QString(".ace-a.c {}"));
    QCOMPARE(LWThemeModule::rewriteCompiledLess("#x {}", "(unclosed"), QString("#x {}"));
}

void tst_LWTheme::missingSourcesOrNameWriteNothing()
{
    ExtensionTree tree;
    tree.writeData("Data/Themes/Empty.lwTheme/info.json", "{\"name\": \"empty\"}");
    tree.writeData("Data/Themes/Escape.lwTheme/info.json", "{\"name\": \"../../escape\"}");
    tree.writeData("Data/Themes/Escape.lwTheme/style.css", "x");
    installedTheme(tree, "Empty.lwTheme");
    installedTheme(tree, "Escape.lwTheme");
    QVERIFY(!tree.existsInData("Data/Html"));
    QVERIFY(!tree.existsInData("escape.js"));
}

QTEST_GUILESS_MAIN(tst_LWTheme)
#include "tst_LWTheme.moc"
