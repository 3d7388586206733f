#include "app/LWPaths.h"
#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"
#include "extensions/LWSpec.h"
#include "extensions/LWTheme.h"
#include "support/ExtensionTree.h"
#include "support/RecordingShell.h"

#include <QtTest>

namespace {

QByteArray specManifest(const QByteArray &modeName, const QByteArray &extensions)
{
    return "// language manifest\n{\"name\": \"" + modeName + "\", \"extensions\": [" + extensions + "]}";
}

// One shipped CSS theme, one shipped spec with mode, snippets and worker, and
// the three user folders.
void writeShippedTree(const ExtensionTree &tree)
{
    tree.writeResource("Data/Themes/Dusk.lwTheme/info.json", "{\"name\": \"dusk\", \"dark\": true}");
    tree.writeResource("Data/Themes/Dusk.lwTheme/style.css", ".ace-dusk {\n color: red;\n}\n");
    tree.writeResource("Data/Specs/Python.lwSpec/info.json", specManifest("python", "\"py\", \"SConstruct\""));
    tree.writeResource("Data/Specs/Python.lwSpec/mode.js", "mode");
    tree.writeResource("Data/Specs/Python.lwSpec/snippets.js", "snippets");
    tree.writeResource("Data/Specs/Python.lwSpec/worker.js", "worker");
    tree.writeResource("User/Themes/.keep", "");
    tree.writeResource("User/Templates/Python/script.py", "print()\n");
    tree.writeResource("User/Snippets/.keep", "");
}

QStringList names(const QList<LWTheme *> &themes)
{
    QStringList result;
    for (const LWTheme *theme : themes)
        result.append(theme->name());
    return result;
}

}

class tst_LWEnvironment : public QObject
{
    Q_OBJECT

private slots:
    void firstRunCopiesAndInstallsEverything();
    void sameBuildCopiesNothing();
    void olderOrUnreadableVersionReplacesData();
    void newerVersionKeepsData();
    void userFoldersAreNeverOverwritten();
    void userBundlesShadowShippedOnes();
    void specForFileName();
    void badManifestsKeepTheBundle();
    void addedUserBundlesAreCopiedAndListed();
};

void tst_LWEnvironment::firstRunCopiesAndInstallsEverything()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    LWEnvironment environment;
    environment.load();
    QVERIFY(environment.wasUpdated());
    QCOMPARE(tree.readData("version.txt"), QByteArray::number(LWPaths::buildNumber()));
    QVERIFY(tree.existsInData("User/Templates/Python/script.py"));
    QVERIFY(tree.existsInData("User/Snippets"));
    QCOMPARE(tree.readData("Data/Html/ace/mode-python.js"), QByteArray("mode"));
    QCOMPARE(tree.readData("Data/Html/ace/snippets/python.js"), QByteArray("snippets"));
    QCOMPARE(tree.readData("Data/Html/ace/worker-python.js"), QByteArray("worker"));
    QVERIFY(tree.readData("Data/Html/ace/theme-dusk.js").contains("t.isDark = 1"));
}

void tst_LWEnvironment::sameBuildCopiesNothing()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    LWEnvironment().load();
    tree.writeData("Data/Html/ace/mode-python.js", "edited");
    tree.writeData("Data/Specs/Python.lwSpec/mode.js", "edited");
    LWEnvironment again;
    again.load();
    QVERIFY(!again.wasUpdated());
    QCOMPARE(tree.readData("Data/Html/ace/mode-python.js"), QByteArray("edited"));
    QCOMPARE(again.specs().size(), 1);
}

void tst_LWEnvironment::olderOrUnreadableVersionReplacesData()
{
    for (const QByteArray &stored : {QByteArray::number(LWPaths::buildNumber() - 1), QByteArray("not a number")}) {
        ExtensionTree tree;
        writeShippedTree(tree);
        tree.writeData("version.txt", stored);
        tree.writeData("Data/stale.txt", "old release");
        LWEnvironment environment;
        environment.load();
        QVERIFY2(environment.wasUpdated(), stored.constData());
        QVERIFY(!tree.existsInData("Data/stale.txt"));
        QVERIFY(tree.existsInData("Data/Specs/Python.lwSpec/mode.js"));
        QCOMPARE(tree.readData("version.txt"), QByteArray::number(LWPaths::buildNumber()));
    }
}

void tst_LWEnvironment::newerVersionKeepsData()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    tree.writeData("version.txt", QByteArray::number(LWPaths::buildNumber() + 1));
    LWEnvironment environment;
    environment.load();
    QVERIFY(!environment.wasUpdated());
    QVERIFY(!tree.existsInData("Data"));
    QCOMPARE(tree.readData("version.txt"), QByteArray::number(LWPaths::buildNumber() + 1));
}

void tst_LWEnvironment::userFoldersAreNeverOverwritten()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    tree.writeData("User/Templates/Python/script.py", "mine");
    LWEnvironment().load();
    QCOMPARE(tree.readData("User/Templates/Python/script.py"), QByteArray("mine"));
    // Each user subfolder is tested on its own, so a missing one still arrives.
    QVERIFY(tree.existsInData("User/Snippets/.keep"));
    QVERIFY(!tree.existsInData("User/Themes"));
}

void tst_LWEnvironment::userBundlesShadowShippedOnes()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    tree.writeData("User/Themes/Dusk.lwTheme/info.json", "{\"name\": \"dusk-mine\"}");
    tree.writeData("User/Themes/Snake.lwSpec/info.json", specManifest("snake", "\"py\""));
    tree.writeData("User/Plugins/Lost.lwSpec/info.json", specManifest("lost", "\"lost\""));
    LWEnvironment environment;
    environment.load();
    QCOMPARE(names(environment.themes()), QStringList({"Dusk", "Dusk"}));
    QCOMPARE(environment.themeNames().value("Dusk"), environment.themes().last());
    QCOMPARE(environment.extensions().value("py")->name(), QString("Snake"));
    QCOMPARE(environment.extensions().value("SConstruct")->name(), QString("Python"));
    QCOMPARE(environment.specs().size(), 2);
    QVERIFY(!environment.specNames().contains("Lost"));
}

void tst_LWEnvironment::specForFileName()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    tree.writeResource("Data/Specs/Make.lwSpec/info.json", specManifest("makefile", "\"Makefile\", \"mk\""));
    tree.writeResource("Data/Specs/Literate.lwSpec/info.json", specManifest("markdown", "\"coffee.md\""));
    LWEnvironment environment;
    environment.load();
    QCOMPARE(LWEnvironment::extensionKey("notes.coffee.md"), QString("coffee.md"));
    QCOMPARE(environment.specForFileName("build/Makefile")->name(), QString("Make"));
    QCOMPARE(environment.specForFileName("a.coffee.md")->name(), QString("Literate"));
    QCOMPARE(environment.specForFileName("tool.py")->name(), QString("Python"));
    QCOMPARE(environment.specForFileName("tool.py", {{"py", "Make"}})->name(), QString("Make"));
    QCOMPARE(environment.specForFileName("tool.py", {{"py", "Unknown"}})->name(), QString("Python"));
    QVERIFY(!environment.specForFileName("picture.png"));
}

void tst_LWEnvironment::badManifestsKeepTheBundle()
{
    ExtensionTree tree;
    tree.writeResource("Data/Themes/Broken.lwTheme/info.json", "{\"name\": ");
    tree.writeResource("Data/Themes/Empty.lwTheme/info.json", "");
    tree.writeResource("Data/Themes/Wide.lwTheme/info.json", QByteArray("\xFF\xFE{\0}\0", 6));
    tree.writeResource("Data/Themes/Listed.lwTheme/info.json", "[1, 2]");
    tree.writeResource("Data/Themes/File.lwTheme", "a file, not a folder");
    tree.writeResource("Data/Specs/Unnamed.lwSpec/info.json", "{\"extensions\": [\"un\"]}");
    tree.writeResource("Data/Specs/Unnamed.lwSpec/mode.js", "mode");
    tree.writeResource("Data/Specs/Bare.lwSpec/mode.js", "mode");
    LWEnvironment environment;
    environment.load();
    QCOMPARE(environment.themes().size(), 5);
    for (const LWTheme *theme : environment.themes())
        QVERIFY2(theme->info().isEmpty(), qPrintable(theme->name()));
    QVERIFY(environment.specNames().value("Bare")->ignore());
    QVERIFY(!environment.specNames().value("Unnamed")->ignore());
    QCOMPARE(environment.menuArrayFor("specs", "languageAction:").size(), 1);
    QVERIFY(!tree.existsInData("Data/Html/ace/mode-.js"));
    QVERIFY(QDir(tree.dataRoot() + "/Data/Html/ace").entryList(QDir::Files).isEmpty());
}

void tst_LWEnvironment::addedUserBundlesAreCopiedAndListed()
{
    ExtensionTree tree;
    writeShippedTree(tree);
    RecordingShell shell;
    LWEnvironment environment;
    environment.load();
    tree.writeResource("Incoming/Shout.lwPlugin/info.json", "{\"category\": \"Text\"}");
    tree.writeResource("Incoming/Dawn.lwTheme/info.json", "{\"name\": \"dawn\", \"dark\": false}");
    tree.writeResource("Incoming/Dawn.lwTheme/style.css", ".ace-dawn {}");
    environment.addUserPluginFromPath(tree.resources() + "/Incoming/Shout.lwPlugin");
    environment.addUserThemeFromPath(tree.resources() + "/Incoming/Dawn.lwTheme");
    QVERIFY(tree.existsInData("User/Plugins/Shout.lwPlugin/info.json"));
    QVERIFY(tree.existsInData("User/Themes/Dawn.lwTheme/style.css"));
    QCOMPARE(environment.pluginByName("Shout")->path(), tree.resources() + "/Incoming/Shout.lwPlugin");
    QVERIFY(tree.readData("Data/Html/ace/theme-dawn.js").contains("t.isDark = 0"));
    QVERIFY(!environment.themeNames().contains("Dawn"));
    QCOMPARE(shell.pluginMenuSpecs.size(), 1);
    QCOMPARE(shell.themesMenuUpdates, 1);
}

QTEST_GUILESS_MAIN(tst_LWEnvironment)
#include "tst_LWEnvironment.moc"
