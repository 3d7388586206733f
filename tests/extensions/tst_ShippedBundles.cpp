#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWSpec.h"
#include "extensions/LWTheme.h"
#include "support/RecordingShell.h"

#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The assembled resource tree as shipped: generated specifications and
// themes, our LESS themes compiled by the real lessc, and the plugins run
// through the page's real CoffeeScript compiler.
class tst_ShippedBundles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void specificationsCoverCommonFiles();
    void lessThemesCompile();
    void runPluginIsBoundForScriptingLanguages();
    void templates();
    void previewsAndCounts();

private:
    QVariantMap runPlugin(const QString &name, const QVariantMap &input) const;

    QTemporaryDir dataHome;
    RecordingShell shell;
    std::unique_ptr<LWEnvironment> environment;
};

void tst_ShippedBundles::initTestCase()
{
    qputenv("XDG_DATA_HOME", dataHome.path().toUtf8());
    environment = std::make_unique<LWEnvironment>();
    environment->load();
    QVERIFY(environment->wasUpdated());
}

void tst_ShippedBundles::specificationsCoverCommonFiles()
{
    QVERIFY(environment->specs().size() > 150);
    QVERIFY(environment->specNames().contains("Plain Text"));
    const QList<QPair<QString, QString>> files{{"main.py", "Python"}, {"Makefile", "Makefile"},
                                               {"Dockerfile", "Dockerfile"}, {"CMakeLists.txt", "Plain Text"},
                                               {"x.cpp", "C and C++"}, {"run.sh", "SH"}, {"a.md", "Markdown"}};
    for (const auto &[file, spec] : files) {
        const LWSpec *found = environment->specForFileName(file);
        QVERIFY2(found && found->name() == spec, qPrintable(file));
    }
    QVERIFY(QFile::exists(dataHome.path() + "/Larkwood/Data/Html/ace/mode-python.js"));
    QVERIFY(QFile::exists(dataHome.path() + "/Larkwood/Data/Html/ace/worker-javascript.js"));
}

void tst_ShippedBundles::lessThemesCompile()
{
    const QString module = dataHome.path() + "/Larkwood/Data/Html/ace/theme-larkwood-classic.js";
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(module).size() > 1000, 30000);
    QFile file(module);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(text.contains("t.isDark = 0"));
    QVERIFY(text.contains(".ace-larkwood-classic .ace_keyword"));
    QVERIFY(!text.contains('\n'));
    QVERIFY(environment->themeNames().contains("Classic (Larkwood)"));
    QVERIFY(environment->themeNames().contains("Monokai"));
}

void tst_ShippedBundles::runPluginIsBoundForScriptingLanguages()
{
    for (const QString &spec : {"Python", "JavaScript", "SH", "Lua"}) {
        environment->pluginsArrayForSpec(environment->specNames().value(spec), "executePluginAction:");
        QVERIFY2(environment->runPlugin(), qPrintable(spec));
        QVERIFY(shell.runButtonVisible);
    }
}

void tst_ShippedBundles::templates()
{
    const QVariantMap templates = environment->templatesDictionaryWithSelector("newFromTemplateAction:");
    QVERIFY(templates.size() >= 10);
    QVERIFY(templates.contains("Python"));
}

void tst_ShippedBundles::previewsAndCounts()
{
    const QVariantMap markdown = runPlugin("Preview Markdown", {{"text", "# Title\n\nSome *em* and `code`.\n\n- one\n- two"},
                                                                 {"path", "/notes/a.md"}});
    const QVariantMap shown = markdown.value("utility").toList().value(0).toMap();
    QVERIFY(shown.value("html").toString().contains("<h1>Title</h1>"));
    QVERIFY(shown.value("html").toString().contains("<p>Some <em>em</em> and <code>code</code>.</p>"));
    QVERIFY(shown.value("html").toString().contains("<ul><li>one</li><li>two</li></ul>"));
    QCOMPARE(shown.value("basePath").toString(), QString("/notes/"));
    const QVariantMap count = runPlugin("Word Count", {{"text", "two words\nthree"}});
    QCOMPARE(count.value("status").toList().value(0).toString(), QString("2 lines, 3 words, 15 characters"));
}

QVariantMap tst_ShippedBundles::runPlugin(const QString &name, const QVariantMap &input) const
{
    const LWPlugin *plugin = environment->pluginByName(name);
    const QString bundle = plugin ? plugin->path()
                                  : environment->specNames().value(name)->plugins().value(0)->path();
    QProcess node;
    node.start("node", {QFINDTESTDATA("run-plugin.js"),
                        dataHome.path() + "/Larkwood/Data/Html/lib/coffeescript.js", bundle,
                        QString::fromUtf8(QJsonDocument::fromVariant(input).toJson())});
    node.waitForFinished(30000);
    if (node.exitCode() != 0)
        qWarning("%s", node.readAllStandardError().constData());
    return QJsonDocument::fromJson(node.readAllStandardOutput()).toVariant().toMap();
}

QTEST_GUILESS_MAIN(tst_ShippedBundles)
#include "tst_ShippedBundles.moc"
