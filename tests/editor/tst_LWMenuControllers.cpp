#include "app/LWDefaults.h"
#include "app/LWDefaultsController.h"
#include "editor/LWDocumentMenuController.h"
#include "editor/LWEditMenuController.h"
#include "editor/LWFindMenuController.h"
#include "editor/LWViewMenuController.h"
#include "editor/StoredEditorSettings.h"
#include "extensions/LWSpec.h"
#include "extensions/LWTheme.h"
#include "support/RecordingShell.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// The menu controllers against the recording shell: every action's exact
// script, the defaults each one stores, and the validators' answers.
class TestMenuControllers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fixedStringsReachTheEditorByActionName_data();
    void fixedStringsReachTheEditorByActionName();
    void goToLineSendsTheTypedTextOrNothingOnCancel();
    void togglesStoreTheNegationThenSendTheStoredValue_data();
    void togglesStoreTheNegationThenSendTheStoredValue();
    void doubleFlipAppliesTheStoredValue();
    void numberItemsReadTheirTitles();
    void zoomHasNoBounds();
    void fontChangesArriveAfterTheCurrentEvent();
    void viewValidatorComparesWithFixedNumbers();
    void scopesAndFindValidator();
    void themeAndSpecItemsUseTheirBundles();
    void extensionOverrideStoresAndRemoves();
    void layoutTogglesShowAndHideWindowParts();
    // Registers the fallback values for the rest of the run: keep it last.
    void storedSettingsFlipOnlyWhatDiffersFromTheStart();

private:
    QObject *controllerFor(const QString &menu);
    QAction *item(const QString &actionName, const QString &title = QString(), bool checkable = true);
    QString makeBundle(const QString &folderName, const QByteArray &info);

    std::unique_ptr<RecordingShell> shell;
    LWDocument::Ptr document;
    std::unique_ptr<LWEditMenuController> edit;
    std::unique_ptr<LWDocumentMenuController> documentMenu;
    std::unique_ptr<LWViewMenuController> view;
    std::unique_ptr<LWFindMenuController> find;
    QTemporaryDir bundles;
};

void TestMenuControllers::init()
{
    shell.reset(); // the old shell uninstalls itself when it goes
    shell = std::make_unique<RecordingShell>();
    LWDefaults *defaults = LWDefaults::shared();
    for (const QString &key : defaults->dictionaryRepresentation().keys())
        defaults->removeObjectForKey(key);
    document.reset();
    edit = std::make_unique<LWEditMenuController>();
    documentMenu = std::make_unique<LWDocumentMenuController>([this] { return document; },
                                                              LWDocumentMenuController::Roles{*shell, *shell, *shell});
    view = std::make_unique<LWViewMenuController>(*shell, *shell);
    find = std::make_unique<LWFindMenuController>();
}

QObject *TestMenuControllers::controllerFor(const QString &menu)
{
    if (menu == QLatin1String("edit"))
        return edit.get();
    if (menu == QLatin1String("document"))
        return documentMenu.get();
    if (menu == QLatin1String("view"))
        return view.get();
    return find.get();
}

QAction *TestMenuControllers::item(const QString &actionName, const QString &title, bool checkable)
{
    auto *action = new QAction(title, this);
    action->setObjectName(actionName);
    action->setCheckable(checkable);
    return action;
}

QString TestMenuControllers::makeBundle(const QString &folderName, const QByteArray &info)
{
    const QString folder = bundles.path() + QLatin1Char('/') + folderName;
    QDir().mkpath(folder);
    QFile manifest(folder + QStringLiteral("/info.json"));
    manifest.open(QIODevice::WriteOnly);
    manifest.write(info);
    return folder;
}

void TestMenuControllers::fixedStringsReachTheEditorByActionName_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("script");
    const QList<std::array<const char *, 3>> rows = {
        {"edit", "selectWordAction", "lw.selectWord();"},
        {"edit", "selectLineAction", "lw.selectLine();"},
        {"edit", "selectLineToBeginningAction", "lw.selectLineStart();"},
        {"edit", "selectLineToEndAction", "lw.selectLineEnd();"},
        {"edit", "selectFileToBeginningAction", "lw.selectFileStart();"},
        {"edit", "selectFileToEndAction", "lw.selectFileEnd();"},
        {"edit", "selectAllAction", "lw.selectAll();"},
        {"edit", "deselectAllAction", "lw.deselectAll();"},
        {"edit", "indentAction", "lw.indent();"},
        {"edit", "outdentAction", "lw.outdent();"},
        {"edit", "moveUpAction", "lw.moveUp();"},
        {"edit", "modeDownAction", "lw.moveDown();"},
        {"edit", "commentUncommentAction", "lw.toggleComments();"},
        {"document", "scrollPageUpAction", "lw.scrollPageUp();"},
        {"document", "scrollPageDownAction", "lw.scrollPageDown();"},
        {"document", "scrollToSelectionAction", "lw.scrollToSelection();"},
        {"document", "bookmarkMarkCurrentAction", "lw.bookmarkMarkCurrent();"},
        {"document", "bookmarkUnmarkCurrentAction", "lw.bookmarkUnmarkCurrent();"},
        {"document", "bookmarkRemoveAllAction", "lw.bookmarkRemoveAll();"},
        {"document", "foldingFoldAllAction", "lw.foldAll();"},
        {"document", "foldingUnfoldAllAction", "lw.unfoldAll();"},
        {"document", "foldingFoldCurrentAction", "lw.foldCurrent();"},
        {"document", "foldingUnfoldCurrentAction", "lw.unfoldCurrent();"},
        {"find", "findAction", "lw.showSearchTab(); lw.find();"},
        {"find", "findNextAction", "lw.findNext();"},
        {"find", "findPreviousAction", "lw.findPrevious();"},
        {"find", "replaceAction", "lw.replace();"},
        {"find", "replaceAllAction", "lw.replaceAll();"},
        {"find", "useSelectionForFindAction", "lw.showSearchTab(); lw.useSelectionForFind();"},
    };
    for (const auto &row : rows)
        QTest::newRow(row[1]) << row[0] << row[1] << row[2];
}

void TestMenuControllers::fixedStringsReachTheEditorByActionName()
{
    QFETCH(QString, menu);
    QFETCH(QString, action);
    QFETCH(QString, script);
    QObject *controller = controllerFor(menu);
    QVERIFY(QMetaObject::invokeMethod(controller, action.toLatin1(), Q_ARG(QAction *, item(action))));
    QCOMPARE(shell->editorScripts, QStringList{script});
    bool enabled = false;
    QVERIFY(QMetaObject::invokeMethod(controller, "validateMenuItem", Q_RETURN_ARG(bool, enabled),
                                      Q_ARG(QAction *, item(action))));
    QCOMPARE(enabled, action != QLatin1String("useSelectionForFindAction"));
}

void TestMenuControllers::goToLineSendsTheTypedTextOrNothingOnCancel()
{
    documentMenu->goToLineAction();
    QCOMPARE(shell->inputs.value(0), qMakePair(QStringLiteral("Line number"), QStringLiteral("1")));
    QVERIFY(shell->editorScripts.isEmpty());

    shell->inputAnswer = QStringLiteral("12");
    documentMenu->goToLineAction();
    QCOMPARE(shell->editorScripts, QStringList{QStringLiteral("lw.goToLine(12);")});
}

void TestMenuControllers::togglesStoreTheNegationThenSendTheStoredValue_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("function");
    const QList<std::array<const char *, 4>> rows = {
        {"view", "togglePanelAction", "LW_Panel", "lw.togglePanel"},
        {"view", "toggleGutterAction", "LW_Gutter", "lw.toggleGutter"},
        {"view", "togglePrintMarginAction", "LW_PrintMargin", "lw.togglePrintMargin"},
        {"view", "toggleIndentationGuidesAction", "LW_IndentationGuides", "lw.toggleIndentationGuides"},
        {"view", "toggleInvisiblesAction", "LW_Invisibles", "lw.toggleInvisibles"},
        {"view", "useSoftTabsToggle", "LW_SoftTabs", "lw.toggleSoftTabs"},
        {"view", "useWordWrapToggle", "LW_WordWrap", "lw.toggleWordWrap"},
        {"find", "useRegularExpressionsToggle", "LW_Search_Regex", "lw.searchOptRegexToggle"},
        {"find", "caseSensitiveToggle", "LW_Search_Case", "lw.searchOptCaseToggle"},
        {"find", "matchWholeWordToggle", "LW_Search_Whole_Word", "lw.searchOptWholeWordToggle"},
    };
    for (const auto &row : rows)
        QTest::newRow(row[1]) << row[0] << row[1] << row[2] << row[3];
}

void TestMenuControllers::togglesStoreTheNegationThenSendTheStoredValue()
{
    QFETCH(QString, action);
    QFETCH(QString, key);
    QFETCH(QString, function);
    QFETCH(QString, menu);
    QObject *controller = controllerFor(menu);
    QAction *menuItem = item(action);

    QVERIFY(QMetaObject::invokeMethod(controller, action.toLatin1(), Q_ARG(QAction *, menuItem)));
    QCOMPARE(LWDefaults::shared()->objectForKey(key).toInt(), 1);
    QVERIFY(QMetaObject::invokeMethod(controller, action.toLatin1(), Q_ARG(QAction *, menuItem)));
    QCOMPARE(LWDefaults::shared()->objectForKey(key).toInt(), 0);
    QCOMPARE(shell->editorScripts, QStringList({function + QStringLiteral("(true);"),
                                                function + QStringLiteral("(false);")}));

    bool enabled = false;
    QVERIFY(QMetaObject::invokeMethod(controller, "validateMenuItem", Q_RETURN_ARG(bool, enabled),
                                      Q_ARG(QAction *, menuItem)));
    QVERIFY(enabled);
    QVERIFY(!menuItem->isChecked());
}

void TestMenuControllers::doubleFlipAppliesTheStoredValue()
{
    LWDefaults *defaults = LWDefaults::shared();
    defaults->setBool(QStringLiteral("LW_Gutter"), true);
    defaults->setBool(QStringLiteral("LW_Gutter"), !defaults->boolForKey(QStringLiteral("LW_Gutter")));
    view->toggleGutterAction();
    QVERIFY(defaults->boolForKey(QStringLiteral("LW_Gutter")));
    QCOMPARE(shell->editorScripts, QStringList{QStringLiteral("lw.toggleGutter(true);")});
}

void TestMenuControllers::numberItemsReadTheirTitles()
{
    view->tabSize4Switch(item(QStringLiteral("tabSize4Switch"), QStringLiteral("4")));
    view->tabSize8Switch(item(QStringLiteral("tabSize8Switch"), QStringLiteral("eight")));
    view->wrapLimits80Switch(item(QStringLiteral("wrapLimits80Switch"), QStringLiteral("80")));
    view->wrapLimitsAutomaticSwitch();
    view->tabSizeSwitch(3);
    view->wrapLimitsSwitch(72);
    QCOMPARE(shell->editorScripts,
             QStringList({QStringLiteral("lw.setTabSize(4);"), QStringLiteral("lw.setTabSize(0);"),
                          QStringLiteral("lw.setWrapLimit(80);"), QStringLiteral("lw.setWrapLimit(0);"),
                          QStringLiteral("lw.setTabSize(3);"), QStringLiteral("lw.setWrapLimit(72);")}));
    QCOMPARE(LWDefaults::shared()->integerForKey(QStringLiteral("LW_TabSize")), 3);
    QCOMPARE(LWDefaults::shared()->integerForKey(QStringLiteral("LW_WrapLimit")), 72);
}

void TestMenuControllers::zoomHasNoBounds()
{
    LWDefaults::shared()->setInteger(QStringLiteral("LW_FontSize"), 1);
    view->fontZoomOutAction();
    view->fontZoomOutAction();
    view->fontZoomInAction();
    QCOMPARE(shell->editorScripts, QStringList({QStringLiteral("lw.setFontSize(0);"),
                                                QStringLiteral("lw.setFontSize(-1);"),
                                                QStringLiteral("lw.setFontSize(0);")}));
    QCOMPARE(LWDefaults::shared()->integerForKey(QStringLiteral("LW_FontSize")), 0);
}

void TestMenuControllers::fontChangesArriveAfterTheCurrentEvent()
{
    view->setFontSize(15);
    view->setFontName(QStringLiteral("It's Mono"));
    QVERIFY(shell->editorScripts.isEmpty());
    QTRY_COMPARE(shell->editorScripts,
                 QStringList({QStringLiteral("lw.setFontSize(15);"),
                              QStringLiteral("lw.editor.setOption('fontFamily','It\\'s Mono');")}));
}

void TestMenuControllers::viewValidatorComparesWithFixedNumbers()
{
    LWDefaults::shared()->setInteger(QStringLiteral("LW_TabSize"), 4);
    LWDefaults::shared()->setInteger(QStringLiteral("LW_WrapLimit"), 0);
    LWDefaults::shared()->setString(QStringLiteral("LW_Theme"), QStringLiteral("Dusk"));
    const QList<QPair<QAction *, bool>> expectations = {
        {item(QStringLiteral("tabSize4Switch"), QStringLiteral("5")), true},
        {item(QStringLiteral("tabSize2Switch"), QStringLiteral("4")), false},
        {item(QStringLiteral("wrapLimitsAutomaticSwitch")), true},
        {item(QStringLiteral("wrapLimits40Switch"), QStringLiteral("40")), false},
        {item(QStringLiteral("setThemeAction"), QStringLiteral("Dusk")), true},
        {item(QStringLiteral("setThemeAction"), QStringLiteral("Dawn")), false},
        {item(QStringLiteral("toggleUtilityViewAction")), false},
    };
    for (const auto &expected : expectations) {
        QVERIFY(view->validateMenuItem(expected.first));
        QCOMPARE(expected.first->isChecked(), expected.second);
    }
    shell->utilityVisible = true;
    QAction *utility = item(QStringLiteral("toggleUtilityViewAction"));
    view->validateMenuItem(utility);
    QVERIFY(utility->isChecked());

    view->toggleUtilityViewAction();
    QVERIFY(!shell->utilityVisible);
    QCOMPARE(shell->editorScripts, QStringList{QStringLiteral("$Core.haltPlugin()")});
    view->toggleUtilityViewAction();
    QVERIFY(shell->utilityVisible);
    QCOMPARE(shell->editorScripts.size(), 1);
}

void TestMenuControllers::scopesAndFindValidator()
{
    QAction *documentScope = item(QStringLiteral("documentScopeSwitch"));
    QAction *selectionScope = item(QStringLiteral("selectionScopeSwitch"));
    find->selectionScopeSwitch();
    QCOMPARE(LWDefaults::shared()->stringForKey(QStringLiteral("LW_Search_Scope")), QStringLiteral("Selection"));
    find->validateMenuItem(documentScope);
    find->validateMenuItem(selectionScope);
    QVERIFY(!documentScope->isChecked() && selectionScope->isChecked());
    find->documentScopeSwitch();
    QCOMPARE(LWDefaults::shared()->stringForKey(QStringLiteral("LW_Search_Scope")), QStringLiteral("Document"));
    QVERIFY(shell->editorScripts.isEmpty());

    QAction *useSelection = item(QStringLiteral("useSelectionForFindAction"), QString(), false);
    QVERIFY(!find->validateMenuItem(useSelection));
    shell->scriptAnswer = QStringLiteral("word");
    QVERIFY(find->validateMenuItem(useSelection));
    QCOMPARE(shell->editorScripts.last(), QStringLiteral("lw.getSelection();"));
    QVERIFY(find->validateMenuItem(item(QStringLiteral("findNextAction"))));
}

void TestMenuControllers::themeAndSpecItemsUseTheirBundles()
{
    const std::unique_ptr<LWTheme> theme(
        LWTheme::themeFromPath(makeBundle(QStringLiteral("Dusk.lwTheme"), R"({"name": "dusk"})")));
    const std::unique_ptr<LWSpec> spec(
        LWSpec::specFromPath(makeBundle(QStringLiteral("Python.lwSpec"), R"({"name": "python"})")));
    QAction *themeItem = item(QStringLiteral("setThemeAction"), QStringLiteral("Dusk"));
    themeItem->setData(QVariant::fromValue<QObject *>(theme.get()));
    view->setThemeAction(themeItem);
    QCOMPARE(LWDefaults::shared()->stringForKey(QStringLiteral("LW_Theme")), QStringLiteral("Dusk"));
    QCOMPARE(shell->editorScripts.value(0), QStringLiteral("lw.setTheme('dusk');"));

    QAction *specItem = item(QStringLiteral("setSpecAction"), QStringLiteral("Python"));
    specItem->setData(QVariant::fromValue<QObject *>(spec.get()));
    documentMenu->setSpecAction(specItem);
    QCOMPARE(shell->pluginMenuSpecs, QList<LWSpec *>{spec.get()});
    QCOMPARE(shell->editorScripts.size(), 1);
    QVERIFY(shell->specPopupTitle.isEmpty());

    document = LWDocument::fileWithLabel(QStringLiteral("a.py"), QString());
    documentMenu->setSpecAction(specItem);
    QCOMPARE(document->specName(), QStringLiteral("Python"));
    QCOMPARE(shell->editorScripts.last(), QStringLiteral("lw.setMode('python');"));
    QCOMPARE(shell->specPopupTitle, QStringLiteral("Python"));
    specItem->setChecked(false);
    documentMenu->validateMenuItem(specItem);
    QVERIFY(specItem->isChecked());

    view->setThemeAction(item(QStringLiteral("setThemeAction"), QStringLiteral("none")));
    QCOMPARE(LWDefaults::shared()->stringForKey(QStringLiteral("LW_Theme")), QStringLiteral("Dusk"));
}

void TestMenuControllers::extensionOverrideStoresAndRemoves()
{
    QAction *override = item(QStringLiteral("setDefaultForCurrentExtension"));
    document = LWDocument::fileWithLabel(QStringLiteral("notes.txt"), QString());
    document->setSpecName(QStringLiteral("Markdown"));
    documentMenu->setDefaultForCurrentExtension(override);
    QVERIFY(override->isChecked());
    QCOMPARE(LWDefaults::shared()->dictionaryForKey(QStringLiteral("LW_User_Extensions")),
             QVariantMap({{QStringLiteral("txt"), QStringLiteral("Markdown")}}));
    override->setChecked(false);
    QVERIFY(documentMenu->validateMenuItem(override));
    QVERIFY(override->isChecked());

    document->setSpecName(QStringLiteral("Text"));
    QVERIFY(documentMenu->validateMenuItem(override));
    QVERIFY(!override->isChecked());
    document->setSpecName(QStringLiteral("Markdown"));
    documentMenu->setDefaultForCurrentExtension(override);
    QVERIFY(!override->isChecked());
    QVERIFY(LWDefaults::shared()->dictionaryForKey(QStringLiteral("LW_User_Extensions")).isEmpty());

    document = LWDocument::fileWithLabel(QStringLiteral("Makefile"), QString());
    document->setSpecName(QStringLiteral("Make"));
    documentMenu->setDefaultForCurrentExtension(override);
    QCOMPARE(LWDefaults::shared()->dictionaryForKey(QStringLiteral("LW_User_Extensions")),
             QVariantMap({{QString(), QStringLiteral("Make")}}));
}

// Menu items are QActions, which need a graphical application.
void TestMenuControllers::layoutTogglesShowAndHideWindowParts()
{
    view->toggleSidebarAction();
    view->toggleTabsAction();
    view->toggleStatusBarAction();
    view->toggleSidebarAction();
    QCOMPARE(shell->calls, QStringList({QStringLiteral("sidebar shown"), QStringLiteral("tab bar shown"),
                                        QStringLiteral("status bar shown"), QStringLiteral("sidebar hidden")}));
    QAction *tabs = item(QStringLiteral("toggleTabsAction"));
    view->validateMenuItem(tabs);
    QVERIFY(tabs->isChecked());
    QVERIFY(shell->editorScripts.isEmpty());
}

void TestMenuControllers::storedSettingsFlipOnlyWhatDiffersFromTheStart()
{
    LWDefaultsController registered;
    LWDefaults::shared()->setBool(QStringLiteral("LW_Sidebar"), false);
    LWDefaults::shared()->setBool(QStringLiteral("LW_Search_Case"), true);
    LWDefaults::shared()->setString(QStringLiteral("LW_FontName"), QString());
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("theme .* is not installed")));
    StoredEditorSettings::apply(*view, *find);
    QCOMPARE(shell->calls.first(), QStringLiteral("sidebar hidden"));
    QVERIFY(!LWDefaults::shared()->boolForKey(QStringLiteral("LW_Sidebar")));
    QTRY_COMPARE(shell->editorScripts,
                 QStringList({QStringLiteral("lw.togglePanel(true);"), QStringLiteral("lw.togglePrintMargin(false);"),
                              QStringLiteral("lw.toggleWordWrap(true);"), QStringLiteral("lw.setCompletion(true);"),
                              QStringLiteral("lw.searchOptCaseToggle(true);"), QStringLiteral("lw.setTabSize(4);"),
                              QStringLiteral("lw.setWrapLimit(0);"), QStringLiteral("lw.setFontSize(14);"),
                              QStringLiteral("lw.editor.setOption('fontFamily','Menlo');")}));
}

QTEST_MAIN(TestMenuControllers)
#include "tst_LWMenuControllers.moc"
