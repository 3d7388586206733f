#include "extensions/LWEnvironment.h"
#include "extensions/LWKeyShortcut.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWSpec.h"
#include "support/ExtensionTree.h"
#include "support/RecordingShell.h"

#include <QtTest>

namespace {

const QString action = QStringLiteral("executePluginAction:");

QByteArray pluginManifest(const QByteArray &fields)
{
    return "{\"name\": \"p\"" + (fields.isEmpty() ? QByteArray() : ", " + fields) + "}";
}

// A Python spec with its own plugins (two bound to "@+R") and index, one
// ignored spec, global plugins of every scope, and templates.
void writeTree(const ExtensionTree &tree)
{
    const QByteArray spec = "Data/Specs/Python.lwSpec/";
    tree.writeResource(spec + "info.json", "{\"name\": \"python\", \"extensions\": [\"py\"]}");
    tree.writeResource(spec + "plugins/Run.lwPlugin/info.json", pluginManifest("\"shortcut\": \"@+R\""));
    tree.writeResource(spec + "plugins/Lint.lwPlugin/info.json", pluginManifest("\"shortcut\": \"$+^+L\""));
    tree.writeResource(spec + "plugins/Debug.lwPlugin/info.json", pluginManifest("\"shortcut\": \"@+R\""));
    tree.writeResource(spec + "plugins/index.json",
                       "[{\"title\": \"Run\"}, {\"title\": \"--\"}, "
                       "{\"title\": \"Tools\", \"children\": [{\"title\": \"Lint\"}, {\"title\": \"--\"}, {\"title\": \"Gone\"}]}]");
    tree.writeResource(spec + "templates/script.py", "print()\n");
    tree.writeResource("Data/Specs/Notes.lwSpec/mode.js", "");
    tree.writeResource("Data/Specs/Plain Text.lwSpec/info.json", "{\"name\": \"text\"}");
    tree.writeResource("Data/Plugins/Sort.lwPlugin/info.json", pluginManifest("\"category\": \"Lines\", \"shortcut\": \"^+F5\""));
    tree.writeResource("Data/Plugins/Count.lwPlugin/info.json", pluginManifest("\"category\": \"Text\""));
    tree.writeResource("Data/Plugins/Everywhere.lwPlugin/info.json", pluginManifest("\"scope\": \"global\""));
    tree.writeResource("Data/Plugins/Snake.lwPlugin/info.json", pluginManifest("\"scope\": \"Python\""));
    tree.writeResource("Data/Plugins/Other.lwPlugin/info.json", pluginManifest("\"scope\": \"Ruby\""));
    tree.writeResource("User/Templates/Python/mine.py", "# mine\n");
    tree.writeResource("User/Templates/Plain Text/notes.txt", "notes");
}

QStringList titles(const QVariantList &items)
{
    QStringList result;
    for (const QVariant &item : items)
        result.append(item.toMap().value("title").toString());
    return result;
}

}

class tst_LWMenus : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void decodeKeyShortcut_data();
    void decodeKeyShortcut();
    void specPluginsBindTheLaterRunPlugin();
    void sandboxedProcessNeverBindsNoSandboxPlugins();
    void userAndCategoryPlugins();
    void globalIndex();
    void templates();

private:
    std::unique_ptr<ExtensionTree> tree;
    std::unique_ptr<LWEnvironment> environment;
};

void tst_LWMenus::init()
{
    tree = std::make_unique<ExtensionTree>();
    writeTree(*tree);
    environment = std::make_unique<LWEnvironment>();
    environment->load();
}

void tst_LWMenus::cleanup()
{
    environment.reset();
    tree.reset();
}

void tst_LWMenus::decodeKeyShortcut_data()
{
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("shift and command") << "$@+S" << "s" << (LWKeyShortcut::Shift | LWKeyShortcut::Command);
    QTest::newRow("no plus") << "F5" << "f5" << 0;
    QTest::newRow("middle part ignored") << "^+~+X" << "x" << int(LWKeyShortcut::Control);
    QTest::newRow("option, unknown ignored") << "~?+K" << "k" << int(LWKeyShortcut::Option);
}

void tst_LWMenus::decodeKeyShortcut()
{
    QFETCH(QString, shortcut);
    const QVariantMap decoded = LWKeyShortcut::decodeKeyShortcut(shortcut);
    QTEST(decoded.value("keyEquivalent").toString(), "key");
    QTEST(decoded.value("keyModifier").toInt(), "modifiers");
}

void tst_LWMenus::specPluginsBindTheLaterRunPlugin()
{
    RecordingShell shell;
    LWSpec *python = environment->specNames().value("Python");
    const QVariantList menu = environment->pluginsArrayForSpec(python, action).toList();
    QVERIFY(shell.runButtonVisible);
    // Of the two "@+R" plugins, the later in the language specification's plugin list is bound.
    LWPlugin *lastRunnable = nullptr;
    QHash<QString, LWPlugin *> byName;
    for (LWPlugin *plugin : python->plugins()) {
        byName.insert(plugin->name(), plugin);
        if (plugin->shortcut() == "@+R")
            lastRunnable = plugin;
    }
    QCOMPARE(environment->runPlugin(), lastRunnable);

    QCOMPARE(titles(menu), QStringList({"Run", "--", "Tools"}));
    const QVariantMap run = menu.first().toMap();
    QCOMPARE(run.value("selector").toString(), action);
    QCOMPARE(run.value("equivalent").toString(), QString("@+R"));
    QCOMPARE(run.value("object").value<QObject *>(), byName.value("Run"));
    QVERIFY(!menu.value(1).toMap().contains("selector"));
    const QVariantList tools = menu.value(2).toMap().value("children").toList();
    QCOMPARE(tools.value(0).toMap().value("equivalent").toString(), QString("$+^+L"));
    QVERIFY(!tools.value(1).toMap().contains("selector"));
    QVERIFY(!tools.value(2).toMap().value("object").isValid());

    QVERIFY(!environment->pluginsArrayForSpec(environment->specNames().value("Plain Text"), action).toList().size());
    QVERIFY(!shell.runButtonVisible);
    QVERIFY(!environment->runPlugin());
    QVERIFY(!environment->pluginsArrayForSpec(environment->specNames().value("Notes"), action).isValid());
}

void tst_LWMenus::sandboxedProcessNeverBindsNoSandboxPlugins()
{
    tree->writeData("Data/Specs/Python.lwSpec/plugins/Debug.lwPlugin/info.json",
                    pluginManifest("\"shortcut\": \"@+R\", \"nosandbox\": true"));
    tree->writeData("Data/Specs/Python.lwSpec/plugins/Run.lwPlugin/info.json",
                    pluginManifest("\"shortcut\": \"@+R\", \"nosandbox\": 0"));
    tree->writeData("Data/Specs/Python.lwSpec/plugins/Lint.lwPlugin/info.json", pluginManifest("\"shortcut\": \"@+R\""));
    LWEnvironment again;
    again.load();
    qputenv("APP_SANDBOX_CONTAINER_ID", "test");
    again.pluginsArrayForSpec(again.specNames().value("Python"), action);
    qunsetenv("APP_SANDBOX_CONTAINER_ID");
    // A "nosandbox" key of any value forbids the binding.
    QCOMPARE(again.runPlugin()->name(), QString("Lint"));
}

void tst_LWMenus::userAndCategoryPlugins()
{
    const QVariantList user = environment->userPluginsArrayForSpec(environment->specNames().value("Python"), action).toList();
    QCOMPARE(user.size(), 2);
    QCOMPARE(user.first().toMap(), QVariantMap({{"title", "--"}, {"selector", ""}, {"object", ""}, {"equivalent", ""}}));
    QCOMPARE(user.last().toMap().value("title").toString(), QString("User"));
    QCOMPARE(titles(user.last().toMap().value("children").toList()), QStringList({"Everywhere", "Snake"}));
    QVERIFY(!environment->userPluginsArrayForSpec(environment->specNames().value("Notes"), action).isValid());

    const QVariantMap categories = environment->pluginsDictionaryWithSelector(action);
    QCOMPARE(categories.keys(), QStringList({"Lines", "Text"}));
    const QVariantMap sort = categories.value("Lines").toList().first().toMap();
    QCOMPARE(sort.value("title").toString(), QString("Sort"));
    QCOMPARE(sort.value("equivalent").toString(), QString("^+F5"));
}

void tst_LWMenus::globalIndex()
{
    const QVariantList index{QVariantMap{{"title", "Lines"}, {"children", QVariantList{QVariantMap{{"title", "Sort"}}}}},
                             QVariantMap{{"title", "--"}},
                             QVariantMap{{"title", "Count"}},
                             QVariantMap{{"title", "Missing"}}};
    const QVariantList menu = environment->globalPluginsToMenuFromIndex(index, action);
    QCOMPARE(titles(menu), QStringList({"Lines", "--", "Count", "Missing"}));
    const QVariantMap sort = menu.first().toMap().value("children").toList().first().toMap();
    QCOMPARE(sort.value("object").value<QObject *>(), environment->pluginByName("Sort"));
    QCOMPARE(menu.value(2).toMap().value("object").value<QObject *>(), environment->pluginByName("Count"));
    QVERIFY(!menu.value(3).toMap().value("object").isValid());
}

void tst_LWMenus::templates()
{
    const QVariantMap templates = environment->templatesDictionaryWithSelector("newFromTemplateAction:");
    // Only specifications that ship templates are offered, with or without user templates.
    QCOMPARE(templates.keys(), QStringList({"Python"}));
    const QVariantList python = templates.value("Python").toList();
    QCOMPARE(titles(python), QStringList({"script", "--", "mine"}));
    const QVariantMap mine = python.last().toMap().value("object").toMap();
    QCOMPARE(mine.value("filename").toString(), QString("mine.py"));
    QCOMPARE(mine.value("source").toString(), QString("# mine\n"));

    QDir(tree->dataRoot() + "/User/Templates/Python").removeRecursively();
    QCOMPARE(titles(environment->templatesDictionaryWithSelector("x:").value("Python").toList()), QStringList({"script"}));
}

QTEST_GUILESS_MAIN(tst_LWMenus)
#include "tst_LWMenus.moc"
