#include "extensions/LWEnvironment.h"
#include "extensions/LWPlugin.h"
#include "extensions/ui/LWMenuOperations.h"
#include "extensions/ui/LWPluginsMenuController.h"
#include "support/ExtensionTree.h"
#include "support/RecordingShell.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

// A target with the two slot shapes that menu selectors may name.
class Target : public QObject
{
    Q_OBJECT
public slots:
    void pickAction(QAction *sender) { picked.append(sender->text()); }
    void refreshAction() { ++refreshed; }

public:
    QStringList picked;
    int refreshed = 0;
};

class tst_LWMenuOperations : public QObject
{
    Q_OBJECT

private slots:
    void keySequences();
    void nestedArrayBuildsSubmenusAndDispatches();
    void dictionariesAndTrimming();
    void itemWithPath();
    void pluginActionsRunAndValidate();
};

void tst_LWMenuOperations::keySequences()
{
    QCOMPARE(LWMenuOperations::keySequenceForShortcut("$@+S"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    QCOMPARE(LWMenuOperations::keySequenceForShortcut("^~+X"), QKeySequence(Qt::META | Qt::ALT | Qt::Key_X));
    QCOMPARE(LWMenuOperations::keySequenceForShortcut("F5"), QKeySequence(Qt::Key_F5));
}

void tst_LWMenuOperations::nestedArrayBuildsSubmenusAndDispatches()
{
    Target target;
    QMenu menu;
    const QVariantList items{
        QVariantMap{{"title", "Run"}, {"selector", "pickAction:"}, {"equivalent", "@+R"}, {"object", 7}},
        QVariantMap{{"title", "--"}},
        QVariantMap{{"title", "Tools"}, {"children", QVariantList{
            QVariantMap{{"title", "Refresh"}, {"selector", "refreshAction:"}, {"equivalent", ""}},
            QVariantMap{{"title", "Nowhere"}, {"selector", "missingAction:"}}}}}};
    LWMenuOperations::addItemsFromNestedArray(&menu, items, &target);
    LWMenuOperations::addItemsFromNestedArray(&menu, {}, &target);
    const QList<QAction *> actions = menu.actions();
    QCOMPARE(actions.size(), 3);
    QVERIFY(actions.at(1)->isSeparator());
    QCOMPARE(actions.at(0)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
    QCOMPARE(actions.at(0)->data().toInt(), 7);
    actions.at(0)->trigger();
    QCOMPARE(target.picked, QStringList({"Run"}));
    QMenu *tools = actions.at(2)->menu();
    QVERIFY(tools);
    tools->actions().at(0)->trigger();
    tools->actions().at(1)->trigger();
    QCOMPARE(target.refreshed, 1);
}

void tst_LWMenuOperations::dictionariesAndTrimming()
{
    Target target;
    QMenu menu;
    menu.addAction("Title item");
    const QVariantMap dictionary{{"Lines", QVariantList{QVariantMap{{"title", "Sort"}, {"selector", "pickAction:"}, {"object", "sort"}}}},
                                 {"Text", QVariantList{QVariantMap{{"title", "Count"}, {"selector", "pickAction:"}}}}};
    LWMenuOperations::addItemsFromDictionary(&menu, dictionary, &target);
    LWMenuOperations::addObjectItemsFromDictionary(&menu, dictionary, &target);
    QCOMPARE(menu.actions().size(), 5);
    QVERIFY(!menu.actions().at(1)->menu()->actions().first()->data().isValid());
    QCOMPARE(menu.actions().at(3)->menu()->actions().first()->data().toString(), QString("sort"));
    LWMenuOperations::removeAllItemsExceptForFirst(&menu, 1);
    QCOMPARE(menu.actions().size(), 1);
    QCOMPARE(menu.actions().first()->text(), QString("Title item"));
}

void tst_LWMenuOperations::itemWithPath()
{
    QMenu bar;
    QMenu *file = bar.addMenu("File");
    QAction *open = file->addAction("Open");
    QMenu *recent = file->addMenu("Recent");
    QAction *deep = recent->addAction("Clear");
    QCOMPARE(LWMenuOperations::itemWithPath(&bar, "File/Open"), open);
    QCOMPARE(LWMenuOperations::itemWithPath(&bar, "File"), file->menuAction());
    QVERIFY(!LWMenuOperations::itemWithPath(&bar, "File/Missing"));
    // Deeper parts are joined without separator before the lookup.
    QVERIFY(!LWMenuOperations::itemWithPath(&bar, "File/Recent/Clear"));
    QCOMPARE(LWMenuOperations::itemWithPath(file, "Recent/Clear"), deep);
}

void tst_LWMenuOperations::pluginActionsRunAndValidate()
{
    ExtensionTree tree;
    tree.writeResource("Data/Plugins/Shout.lwPlugin/info.json", "{\"name\": \"shout\", \"nosandbox\": true}");
    tree.writeResource("Data/Plugins/Shout.lwPlugin/script.coffee", "alert 'it''s'\n");
    tree.writeResource("Data/Plugins/Empty.lwPlugin/info.json", "{\"name\": \"empty\"}");
    RecordingShell shell;
    LWEnvironment environment;
    environment.load();
    LWPluginsMenuController controller(&environment, nullptr, shell);
    QMenu menu;
    LWMenuOperations::addItemsFromNestedArray(
        &menu, environment.globalPluginsToMenuFromIndex({QVariantMap{{"title", "Shout"}}, QVariantMap{{"title", "Empty"}}},
                                                        "executePluginAction:"), &controller);
    menu.actions().at(0)->trigger();
    const QString path = environment.pluginByName("Shout")->path();
    QCOMPARE(shell.editorScripts, QStringList({"$Core.runPlugin('shout','" + path + "',[\"alert 'it''s'\\n\"]);"}));
    menu.actions().at(1)->trigger();
    QCOMPARE(shell.alerts.value(0).first, QString("Plugin error"));
    QCOMPARE(shell.alerts.value(0).second, QString("Plugin doesn't seem to be correctly set up - no script file found"));

    controller.executePluginAction();
    QCOMPARE(shell.editorScripts.size(), 1);
    QVERIFY(controller.validateMenuItem(menu.actions().at(0)));
    qputenv("APP_SANDBOX_CONTAINER_ID", "test");
    QVERIFY(!controller.validateMenuItem(menu.actions().at(0)));
    QVERIFY(controller.validateMenuItem(menu.actions().at(1)));
    qunsetenv("APP_SANDBOX_CONTAINER_ID");
}

QTEST_MAIN(tst_LWMenuOperations)
#include "tst_LWMenuOperations.moc"
