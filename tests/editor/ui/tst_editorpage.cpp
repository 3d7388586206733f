#include "support/EditorPage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

// Stands in for the backend: records every call the page makes.
class RecordingCore : public QObject
{
    Q_OBJECT
public:
    QList<QStringList> calls;

    QStringList argumentsOf(const QString &method) const
    {
        for (auto it = calls.crbegin(); it != calls.crend(); ++it)
            if (it->first() == method)
                return it->mid(1);
        return {};
    }
    bool received(const QString &method) const { return !argumentsOf(method).isEmpty() || count(method) > 0; }
    int count(const QString &method) const
    {
        return int(std::count_if(calls.cbegin(), calls.cend(),
                                 [&](const QStringList &call) { return call.first() == method; }));
    }

    Q_INVOKABLE void jslog_(const QString &text) { record({"jslog_", text}); }
    Q_INVOKABLE void currentLocationChanged_(const QString &text) { record({"currentLocationChanged_", text}); }
    Q_INVOKABLE void currentDocumentChanged() { record({"currentDocumentChanged"}); }
    Q_INVOKABLE void searchOptChanged_withValue_(const QString &key, bool value)
    {
        record({"searchOptChanged_withValue_", key, value ? "true" : "false"});
    }
    Q_INVOKABLE void panelToggled_(bool shown) { record({"panelToggled_", shown ? "true" : "false"}); }
    Q_INVOKABLE QString terminalExec_env_action_completed_(const QString &command, const QString &env,
                                                           const QString &action, const QString &completed)
    {
        record({"terminalExec_env_action_completed_", command, env, action, completed});
        return {};
    }
    Q_INVOKABLE void terminalWrite_(const QString &text) { record({"terminalWrite_", text}); }
    Q_INVOKABLE void terminalKill() { record({"terminalKill"}); }
    Q_INVOKABLE void registerPluginMenu_(const QString &titles) { record({"registerPluginMenu_", titles}); }
    Q_INVOKABLE QString getFullPath() { return QStringLiteral("/work/notes.md"); }
    Q_INVOKABLE QString getLabel() { return QStringLiteral("notes.md"); }
    Q_INVOKABLE QString pluginInfo_(const QString &) { return QStringLiteral("{}"); }
    Q_INVOKABLE void showStatus_(const QString &text) { record({"showStatus_", text}); }
    Q_INVOKABLE void hideStatus() { record({"hideStatus"}); }
    Q_INVOKABLE void loadHtml_label_withBasePath_(const QString &html, const QString &label, const QString &base)
    {
        record({"loadHtml_label_withBasePath_", html, label, base});
    }
    Q_INVOKABLE void alertDialogWithTitle_information_callback_(const QString &title, const QString &text,
                                                                const QString &callback)
    {
        record({"alertDialogWithTitle_information_callback_", title, text, callback});
    }

private:
    void record(const QStringList &call) { calls.append(call); }
};

namespace {

// A script string of the shell evaluated the way the shell does, answering
// "ERROR: ..." when it throws.
QString guarded(const QString &script)
{
    const QString literal = QString::fromUtf8(QJsonDocument(QJsonArray{script}).toJson(QJsonDocument::Compact));
    return QStringLiteral("(function () { try { var r = (0, eval)(%1[0]); return r === undefined ? '' : String(r); }"
                          " catch (e) { return 'ERROR: ' + e; } })()").arg(literal);
}

QString stateScript(const QString &content, const QString &mode, bool readOnly = false)
{
    const QJsonObject state{{"content", content}, {"mode", mode}, {"readOnly", readOnly}};
    return QStringLiteral("lw.setState(%1);").arg(QString::fromUtf8(QJsonDocument(state).toJson(QJsonDocument::Compact)));
}

QString terminalText(EditorPage &page)
{
    return page.evalString(QStringLiteral("$('#terminal .terminal-output').text()")).replace(QChar(0xa0), ' ');
}

QString runPluginScript(const QString &name, const QString &source)
{
    return QStringLiteral("$Core.runPlugin('%1','/plugins/%1.lwPlugin',%2);")
        .arg(name, QString::fromUtf8(QJsonDocument(QJsonArray{source}).toJson(QJsonDocument::Compact)));
}

QString shippedPlugin(const QString &name)
{
    QFile file(LWPaths::resourcePath(QStringLiteral("Data/Plugins/%1.lwPlugin/script.coffee").arg(name)));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

// The string value of a script run in any page, "" when it has none.
QString evaluated(QWebEnginePage &page, const QString &script)
{
    QString answer;
    bool done = false;
    page.runJavaScript(script, [&](const QVariant &value) {
        answer = value.toString();
        done = true;
    });
    QTest::qWaitFor([&] { return done; }, 10000);
    return answer;
}

QJsonObject parsedState(EditorPage &page)
{
    return QJsonDocument::fromJson(page.evalString(QStringLiteral("lw.getState()")).toUtf8()).object();
}

}

class TestEditorPage : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        core = std::make_unique<RecordingCore>();
        page = std::make_unique<EditorPage>(core.get());
        QVERIFY2(page->load(), "the editor page did not start");
    }

    void cleanup()
    {
        if (page)
            QVERIFY2(page->page->errors.isEmpty(), qPrintable(page->page->errors.join('\n')));
        page.reset();
        core.reset();
    }

    void everyShellStringRunsWithoutError()
    {
        page->eval(stateScript("function a() {\n  return [1, 2];\n}\nvar b = a();\n", "javascript"));
        page->eval("$Core.runPlugin('Say','/tmp/Say.lwPlugin',[\"plugin.menu 'Hello': -> lw.insert 'hi'\"]);");
        const QStringList scripts = {
            // Edit menu
            "lw.selectWord();", "lw.selectLine();", "lw.selectLineStart();", "lw.selectLineEnd();",
            "lw.selectFileStart();", "lw.selectFileEnd();", "lw.selectAll();", "lw.deselectAll();",
            "lw.indent();", "lw.outdent();", "lw.moveUp();", "lw.moveDown();", "lw.toggleComments();",
            // Document menu
            "lw.goToLine(2);", "lw.scrollPageUp();", "lw.scrollPageDown();", "lw.scrollToSelection();",
            "lw.bookmarkMarkCurrent();", "lw.bookmarkUnmarkCurrent();", "lw.bookmarkRemoveAll();",
            "lw.foldAll();", "lw.unfoldAll();", "lw.foldCurrent();", "lw.unfoldCurrent();", "lw.setMode('python');",
            // View menu
            "lw.togglePanel(true);", "lw.togglePanel(false);", "lw.toggleGutter(true);", "lw.toggleGutter(false);",
            "lw.togglePrintMargin(true);", "lw.togglePrintMargin(false);",
            "lw.toggleIndentationGuides(true);", "lw.toggleIndentationGuides(false);",
            "lw.toggleInvisibles(true);", "lw.toggleInvisibles(false);", "lw.toggleSoftTabs(true);",
            "lw.toggleSoftTabs(false);", "lw.toggleWordWrap(true);", "lw.toggleWordWrap(false);",
            "lw.setTabSize(8);", "lw.setWrapLimit(80);", "lw.setWrapLimit(0);", "lw.setFontSize(14);",
            "lw.setFontSize(0);", "lw.editor.setOption('fontFamily','Menlo');", "lw.setTheme('monokai');",
            // Find menu
            "lw.showSearchTab(); lw.find();", "lw.findNext();", "lw.findPrevious();", "lw.replace();",
            "lw.replaceAll();", "lw.showSearchTab(); lw.useSelectionForFind();", "lw.searchOptRegexToggle(true);",
            "lw.searchOptRegexToggle(false);", "lw.searchOptCaseToggle(true);", "lw.searchOptCaseToggle(false);",
            "lw.searchOptWholeWordToggle(true);", "lw.searchOptWholeWordToggle(false);", "lw.getSelection();",
            // Other parts of the shell
            "lw.getState()", "lw.saveLocalState('0x55d0c0ffee');", stateScript("x = 1\n", "python"),
            "lw.loadLocalState('0x55d0c0ffee');", "$Events.exec('documentSaved');", "lw.getMode();",
            "lw.editor.renderer.$themeId", "lw.echo('chunk\\n');", "$Core.coffee([\"square = (x) -> x * x\"],true,true);",
            "try { var imported = 1; } catch (err) { $Terminal.echo(inspectObject(err)) }",
            "$Core.currentPlugin.menu()['Hello']()", "window.setTerminalStdin(false);", "$Terminal.show();",
            "$Terminal.echo('listing');", "$Terminal.echo();", "$Terminal.echo('FTP:: Getting contents at path: /srv');",
            "$Terminal.echo('&#10004; /srv/a.txt');", "$Core.haltPlugin()",
        };
        for (const QString &script : scripts) {
            const QString answer = page->evalString(guarded(script));
            QVERIFY2(!answer.startsWith("ERROR"), qPrintable(script + " -> " + answer));
        }
        QTRY_VERIFY(terminalText(*page).contains(QStringLiteral("\u2714 /srv/a.txt")));
    }

    void editingCommandsChangeTheText()
    {
        page->eval(stateScript("alpha beta\nsecond\nthird\n", "javascript"));
        QTRY_COMPARE(page->evalString("lw.editor.session.$modeId"), QStringLiteral("ace/mode/javascript"));
        page->eval("lw.goToLine(1); lw.moveDown();");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("second\nalpha beta\nthird\n"));
        page->eval("lw.selectLine(); lw.toggleComments();");
        QCOMPARE(page->evalString("lw.editor.session.getLine(1)"), QStringLiteral("// alpha beta"));
        page->eval("lw.goToLine(3); lw.indent();");
        QCOMPARE(page->evalString("lw.editor.session.getLine(2)"), QStringLiteral("    third"));
        page->eval("lw.selectFileStart();");
        QCOMPARE(page->evalString("lw.getSelection()").count('\n'), 2);
        page->eval("lw.goToLine('twelve');");
        QVERIFY(core->argumentsOf("jslog_").value(0).contains("not a line number"));
    }

    void bookmarksAndFoldsShowInTheEditor()
    {
        page->eval(stateScript("function f() {\n  if (x) {\n    y();\n  }\n}\n", "javascript"));
        QTRY_COMPARE(page->evalString("lw.editor.session.$modeId"), QStringLiteral("ace/mode/javascript"));
        page->eval("lw.goToLine(2); lw.bookmarkMarkCurrent(); lw.goToLine(3); lw.bookmarkMarkCurrent();");
        QCOMPARE(page->evalString("lw.getBookmarks().join()"), QStringLiteral("1,2"));
        QTRY_COMPARE(page->eval("$('.ace_gutter-cell.lw-bookmark').length").toInt(), 2);
        page->eval("lw.bookmarkUnmarkCurrent();");
        QCOMPARE(page->evalString("lw.getBookmarks().join()"), QStringLiteral("1"));
        page->eval("lw.bookmarkRemoveAll();");
        QCOMPARE(page->evalString("lw.getBookmarks().join()"), QString());

        page->eval("lw.goToLine(1); lw.foldCurrent();");
        QCOMPARE(page->eval("lw.editor.session.getAllFolds().length").toInt(), 1);
        page->eval("lw.unfoldCurrent();");
        QCOMPARE(page->eval("lw.editor.session.getAllFolds().length").toInt(), 0);
        page->eval("lw.foldAll();");
        QVERIFY(page->eval("lw.editor.session.getAllFolds().length").toInt() >= 1);
        page->eval("lw.unfoldAll();");
        QCOMPARE(page->eval("lw.editor.session.getAllFolds().length").toInt(), 0);
    }

    void stateRoundTripKeepsEveryCharacter()
    {
        QString content;
        const QString line = QStringLiteral("say(\"it's\") \\ path\\to\\n 'quoted' \u00e9\u00e8 \u4e2d\u6587 \U0001F600\t</script>\r\n");
        while (content.size() < 1024 * 1024)
            content += line;
        page->eval(stateScript(content, "python"));
        const QJsonObject state = parsedState(*page);
        QCOMPARE(state.value("mode").toString(), QStringLiteral("python"));
        QVERIFY(state.value("content").toString() == content);

        page->eval("lw.goToLine(3); lw.insert('x');");
        const QString edited = parsedState(*page).value("content").toString();
        QCOMPARE(edited.size(), content.size() + 1);
        QVERIFY(edited.startsWith(line + line + "x" + line));
    }

    void localStateRestoresUndoAndCursorAcrossSwitch()
    {
        page->eval(stateScript("first\ndocument\n", "text"));
        page->eval("lw.loadLocalState('0xA');");
        page->eval("lw.goToLine(2); lw.insert('my '); lw.goToLine(1); lw.selectLineEnd();");
        const QString stateA = QJsonDocument(parsedState(*page)).toJson(QJsonDocument::Compact);
        page->eval("lw.saveLocalState('0xA');");

        page->eval(stateScript("second document\n", "text"));
        page->eval("lw.loadLocalState('0xB');");
        page->eval("lw.insert('typed in B ');");
        page->eval("lw.getState(); lw.saveLocalState('0xB');");

        page->eval(QStringLiteral("lw.setState(%1);").arg(stateA));
        page->eval("lw.loadLocalState('0xA');");
        QCOMPARE(page->evalString("lw.getSelection()"), QStringLiteral("first"));
        page->eval("lw.editor.undo();");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("first\ndocument\n"));

        // Text changed outside the editor arrives as one more undoable step.
        page->eval("lw.saveLocalState('0xA');");
        page->eval(stateScript("replaced on disk\n", "text"));
        page->eval("lw.loadLocalState('0xA');");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("replaced on disk\n"));
        page->eval("lw.editor.undo();");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("first\ndocument\n"));
    }

    void togglesChangeEditorOptions()
    {
        const QList<QPair<QString, QString>> cases = {
            {"lw.toggleGutter(%1);", "lw.editor.renderer.getShowGutter()"},
            {"lw.togglePrintMargin(%1);", "lw.editor.renderer.getShowPrintMargin()"},
            {"lw.toggleIndentationGuides(%1);", "lw.editor.renderer.getDisplayIndentGuides()"},
            {"lw.toggleInvisibles(%1);", "lw.editor.renderer.getShowInvisibles()"},
            {"lw.toggleSoftTabs(%1);", "lw.editor.session.getUseSoftTabs()"},
            {"lw.toggleWordWrap(%1);", "lw.editor.session.getUseWrapMode()"},
            {"lw.togglePanel(%1);", "$('#panel').is(':visible')"},
        };
        for (const auto &[toggle, probe] : cases) {
            for (bool on : {true, false, true}) {
                page->eval(toggle.arg(on ? "true" : "false"));
                QVERIFY2(page->eval(probe).toBool() == on, qPrintable(toggle.arg(on)));
            }
        }
        page->eval("lw.setTabSize(8); lw.setWrapLimit(40); lw.setFontSize(17);"
                   "lw.editor.setOption('fontFamily','DejaVu Sans Mono');");
        // Session options outlive a document switch.
        page->eval(stateScript("new\n", "text"));
        QCOMPARE(page->eval("lw.editor.session.getTabSize()").toInt(), 8);
        QCOMPARE(page->eval("lw.editor.session.getWrapLimitRange().max").toInt(), 40);
        QVERIFY(page->eval("lw.editor.session.getUseWrapMode()").toBool());
        QCOMPARE(page->eval("lw.editor.getFontSize()").toInt(), 17);
        QCOMPARE(page->evalString("lw.editor.getOption('fontFamily')"), QStringLiteral("'DejaVu Sans Mono', monospace"));
        page->eval("lw.setWrapLimit(0); lw.setFontSize(0);");
        QVERIFY(page->eval("lw.editor.session.getWrapLimitRange().max").isNull());
        QCOMPARE(page->eval("lw.editor.getFontSize()").toInt(), 1);
    }

    void searchHonoursOptionsAndScope()
    {
        page->eval(stateScript("Cat cat concat\ncat dog\nCAT\n", "text"));
        page->eval("$('#search-find').val('cat'); lw.searchOptCaseToggle(true); lw.searchOptWholeWordToggle(true);");
        page->eval("lw.showSearchTab(); lw.find();");
        QCOMPARE(page->evalString("JSON.stringify(lw.editor.getSelectionRange().start)"), QStringLiteral("{\"row\":0,\"column\":4}"));
        page->eval("lw.findNext();");
        QCOMPARE(page->eval("lw.editor.getSelectionRange().start.row").toInt(), 1);

        page->eval("lw.searchOptCaseToggle(false); lw.searchOptWholeWordToggle(false); lw.searchOptRegexToggle(true);");
        page->eval("$('#search-find').val('c.t$'); $('#search-replace').val('X'); lw.replaceAll();");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("Cat cat conX\ncat dog\nX\n"));

        page->eval("$('#search-find').val('('); lw.find();");
        QCOMPARE(page->evalString("$('#search-status').text()"), QStringLiteral("Invalid regular expression"));

        // Selection scope: only the second line changes.
        page->eval("lw.searchOptRegexToggle(false); $('#search-scope').val('Selection').trigger('change');");
        page->eval("lw.goToLine(2); lw.selectLine(); $('#search-find').val('cat'); $('#search-replace').val('cow'); lw.replaceAll();");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("Cat cat conX\ncow dog\nX\n"));

        page->eval("lw.goToLine(2); lw.selectWord(); lw.useSelectionForFind();");
        QCOMPARE(page->evalString("$('#search-find').val()"), QStringLiteral("cow"));

        page->eval("$('[data-option=regex]').click();");
        QCOMPARE(core->argumentsOf("searchOptChanged_withValue_"), (QStringList{"LW_Search_Regex", "true"}));
    }

    void themesAndModesLoadFromInstalledFiles()
    {
        page->eval("lw.setTheme('monokai'); lw.setMode('python');");
        QTRY_COMPARE(page->evalString("lw.editor.renderer.$themeId"), QStringLiteral("ace/theme/monokai"));
        QTRY_COMPARE(page->evalString("lw.editor.session.$modeId"), QStringLiteral("ace/mode/python"));
        QCOMPARE(page->evalString("lw.getMode();"), QStringLiteral("python"));

        page->eval("lw.setTheme('no-such-theme'); lw.setMode('no-such-mode'); lw.setMode('../../etc');");
        QTRY_COMPARE(core->count("jslog_"), 3);
        page->page->errors.clear();  // the missing files themselves are reported by the engine
        QCOMPARE(page->evalString("lw.editor.renderer.$themeId"), QStringLiteral("ace/theme/monokai"));
        QCOMPARE(page->evalString("lw.getMode();"), QStringLiteral("python"));
    }

    void badStatesLeaveTheDocumentAlone()
    {
        page->eval(stateScript("keep me\n", "text"));
        for (const QString &bad : {"lw.setState('text');", "lw.setState(null);", "lw.setState([1,2]);", "lw.setState();"})
            page->eval(bad);
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("keep me\n"));
        QCOMPARE(core->count("jslog_"), 4);
        page->eval("lw.setState({content: 42});");
        QCOMPARE(parsedState(*page).value("content").toString(), QStringLiteral("42"));
    }

    void pageReportsEditsCursorAndPanelToShell()
    {
        page->eval(stateScript("abc\ndef\n", "text"));
        page->eval("lw.goToLine(2); lw.insert('x');");
        QTRY_VERIFY(core->received("currentDocumentChanged"));
        QTRY_COMPARE(core->argumentsOf("currentLocationChanged_").value(0), QStringLiteral("Line 2, Column 2"));
        page->eval("$('.panel-close').click();");
        QCOMPARE(core->argumentsOf("panelToggled_"), QStringList{"false"});
        QVERIFY(!page->eval("$('#panel').is(':visible')").toBool());
    }

    void terminalCommandsRunThroughTheSession()
    {
        page->eval("$Terminal.console.exec('cd /tmp && echo \"$HOME\" | wc -c');");
        QTRY_VERIFY(core->received("terminalExec_env_action_completed_"));
        const QStringList call = core->argumentsOf("terminalExec_env_action_completed_");
        QCOMPARE(QJsonDocument::fromJson(call.value(0).toUtf8()).array(),
                 (QJsonArray{"eval", "cd /tmp && echo \"\\$HOME\" | wc -c"}));
        QCOMPARE(call.value(2), QStringLiteral("$Terminal.write('%@')"));

        page->eval("$Terminal.console.exec('an answer'); $Terminal.console.exec('one too many');");
        QTRY_COMPARE(core->argumentsOf("terminalWrite_"), QStringList{"an answer\n"});
        QCOMPARE(core->count("terminalWrite_"), 1);

        page->eval("$Terminal.write('first line\\nsecond <b>line</b> [[;red;]x]\\npartial');");
        page->eval("window.setTerminalStdin(false);");
        QTRY_VERIFY(page->eval("$Terminal.stats().idle").toBool());
        const QString text = terminalText(*page);
        QVERIFY(text.contains("second <b>line</b> [[;red;]x]"));
        QVERIFY(text.contains("partial"));
        QCOMPARE(page->evalString("$Terminal.console.get_prompt()"), QStringLiteral("$ "));
    }

    void terminalFloodShowsItsEndWithWholeLines()
    {
        // 20000 numbered lines in chunks that cut lines anywhere.
        page->eval("(function () { var text = ''; for (var i = 0; i < 20000; i++) text += 'row ' + i + ' end\\n';"
                   "  for (var at = 0; at < text.length; at += 777) $Terminal.write(text.slice(at, at + 777)); })()");
        page->eval("window.setTerminalStdin(false);");
        QTRY_VERIFY_WITH_TIMEOUT(page->eval("$Terminal.stats().idle").toBool(), 30000);
        QCOMPARE(page->eval("$Terminal.stats().lines").toInt(), 20000);
        const QStringList shown = page->eval("$('#terminal .terminal-output div div').map(function () {"
                                             "  return $(this).text().replace(/\\u00a0/g, ' '); }).get()").toStringList();
        QVERIFY(shown.filter("lines of output not shown").size() >= 1);
        QCOMPARE(shown.last(), QStringLiteral("row 19999 end"));
        const QStringList rows = shown.filter(QRegularExpression("^row"));
        QVERIFY(rows.size() >= 500);
        for (const QString &row : rows)
            QVERIFY2(QRegularExpression("^row \\d+ end$").match(row).hasMatch(), qPrintable(row));
    }

    void terminalShowsColoursAndDropsOtherSequences()
    {
        // The last sequence is cut between two writes.
        page->eval(R"($Terminal.write('\x1b[1;31mred\x1b[0m plain \x1b[38;5;21mblue\x1b[38;2;1;2;3mrgb\x1b[0m'
                   + '\x1b]0;title\x07\x1b[2K\x1b(B\r<img src=x onerror="window.injected=1">[[;red;]x]\x1b[3');
                   $Terminal.write('2mgreen\x1b[m\n');)");
        QTRY_VERIFY(page->eval("$Terminal.stats().idle").toBool());
        QCOMPARE(terminalText(*page), QStringLiteral("red plain bluergb<img src=x onerror=\"window.injected=1\">[[;red;]x]green"));
        QVERIFY(page->eval("$('#terminal img').length === 0 && window.injected === undefined").toBool());
        const auto look = [&](const QString &text) {
            return page->evalString(QStringLiteral("(function () { var run = $('#terminal .terminal-output span').filter("
                                                   "  function () { return $(this).text() === '%1'; }).last()[0];"
                                                   "  var style = getComputedStyle(run); return style.color + ' ' + style.fontWeight; })()")
                                        .arg(text));
        };
        QCOMPARE(look("red"), QStringLiteral("rgb(205, 49, 49) 700"));
        QCOMPARE(look("blue"), QStringLiteral("rgb(0, 0, 255) 400"));
        QCOMPARE(look("rgb"), QStringLiteral("rgb(1, 2, 3) 400"));
        QCOMPARE(look("green"), QStringLiteral("rgb(13, 188, 121) 400"));
    }

    void terminalKeepsAnEndlessLineBounded()
    {
        // One write far over the page's bound, then many pieces that together are.
        page->eval("(function () { $Terminal.write(new Array(1 << 21).join('y')); var piece = new Array(65537).join('x');"
                   "  for (var i = 0; i < 16; i++) $Terminal.write(piece); $Terminal.write('END'); })()");
        page->eval("window.setTerminalStdin(false);");
        QTRY_VERIFY_WITH_TIMEOUT(page->eval("$Terminal.stats().idle").toBool(), 30000);
        const QString text = terminalText(*page);
        QVERIFY2(text.size() < 200000, qPrintable(QString::number(text.size())));
        QVERIFY(text.contains(QStringLiteral("characters of output not shown")));
        QVERIFY(text.endsWith(QStringLiteral("xxEND")));
    }

    void terminalForgetsOldWrites()
    {
        // One write per task, so that each reaches the console on its own.
        page->eval("(function next(i) { if (i < 450) { $Terminal.write('line ' + i + '\\n');"
                   "  setTimeout(function () { next(i + 1); }, 1); } else window.written = true; })(0)");
        QTRY_VERIFY_WITH_TIMEOUT(page->eval("window.written && $Terminal.stats().idle").toBool(), 60000);
        QVERIFY(page->eval("$Terminal.console.last_index()").toInt() < 400);
        const QString text = terminalText(*page);
        QVERIFY(text.endsWith(QStringLiteral("line 449")));
        QVERIFY(!text.contains(QStringLiteral("line 10line")));
    }

    void pluginsCompileRunAndReportErrors()
    {
        const QString source = QStringLiteral(
            "plugin.menu\n"
            "  'Upper': -> plugin.editor.transform (text) -> text.toUpperCase()\n"
            "  'Where': -> backend.getFullPath().then (path) -> plugin.terminal.echo 'at', path, plugin.document.label()\n"
            "plugin.onHalt -> lw.insert 'halted'\n");
        page->eval(stateScript("text", "text"));
        page->eval(runPluginScript("Tools", source));
        QTRY_COMPARE(core->argumentsOf("registerPluginMenu_"), QStringList{"[\"Upper\",\"Where\"]"});
        page->eval("$Core.currentPlugin.menu()['Upper']()");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("TEXT"));
        page->eval("$Core.currentPlugin.menu()['Where']()");
        QTRY_VERIFY(terminalText(*page).contains("at /work/notes.md notes.md"));
        page->eval("$Core.haltPlugin()");
        QCOMPARE(page->evalString("lw.getValue()"), QStringLiteral("TEXThalted"));
        QCOMPARE(core->argumentsOf("registerPluginMenu_"), QStringList{"[]"});

        page->eval(runPluginScript("Broken", "plugin.menu 'A': ->\n  ("));
        QTRY_VERIFY(terminalText(*page).contains("Plugin 'Broken'"));
        QVERIFY(core->argumentsOf("jslog_").value(0).startsWith("Plugin 'Broken': [stdin]:2"));
        page->eval("$Core.coffee([\"window.fromCoffee = [1..3].length\"],true,true);");
        QCOMPARE(page->eval("window.fromCoffee").toInt(), 3);
    }

    void shippedPluginsFindTheirApi()
    {
        page->eval(stateScript("pear\napple\npear\n{\"b\": [1, 2]}\n", "text"));
        page->eval("lw.goToLine(1); lw.editor.selection.selectTo(2, 4);");
        page->eval(runPluginScript("Sort Lines", shippedPlugin("Sort Lines")));
        QTRY_COMPARE(page->evalString("lw.getValue()"), QStringLiteral("apple\npear\npear\n{\"b\": [1, 2]}\n"));
        page->eval(runPluginScript("Unique Lines", shippedPlugin("Unique Lines")));
        QTRY_COMPARE(page->evalString("lw.getValue()"), QStringLiteral("apple\npear\n{\"b\": [1, 2]}\n"));
        page->eval("lw.goToLine(3); lw.selectLine();");
        page->eval(runPluginScript("Format JSON", shippedPlugin("Format JSON")));
        QTRY_VERIFY(page->evalString("lw.getValue()").endsWith("{\n  \"b\": [\n    1,\n    2\n  ]\n}\n"));

        page->eval(runPluginScript("Word Count", shippedPlugin("Word Count")));
        QTRY_VERIFY(core->argumentsOf("showStatus_").value(0).contains(" words"));
        page->eval(stateScript("# Title\n\nSome *text*.\n", "markdown"));
        page->eval(runPluginScript("Preview Markdown", shippedPlugin("Preview Markdown")));
        QTRY_VERIFY(core->received("loadHtml_label_withBasePath_"));
        const QStringList preview = core->argumentsOf("loadHtml_label_withBasePath_");
        QVERIFY(preview.value(0).contains("<h1>Title</h1>"));
        QCOMPARE(preview.mid(1), (QStringList{"Markdown Preview", "/work/"}));
    }

    // Markup that reaches the editor page (plugin output, program output)
    // runs no script there: only the program's own files and plugins do.
    void editorPageRunsNoScriptFromMarkup()
    {
        page->eval("var s = document.createElement('script'); s.textContent = 'window.inline = 1';"
                   "document.body.appendChild(s);"
                   "var a = document.createElement('a'); a.href = 'javascript:window.linked = 1';"
                   "document.body.appendChild(a); a.click();"
                   "var i = document.createElement('img'); i.setAttribute('onerror', 'window.handled = 1');"
                   "i.src = 'nowhere.png'; document.body.appendChild(i);");
        QTest::qWait(300);
        QCOMPARE(page->evalString("typeof window.inline + typeof window.linked + typeof window.handled"),
                 QStringLiteral("undefinedundefinedundefined"));
        QVERIFY(!page->page->errors.isEmpty());
        for (const QString &error : std::as_const(page->page->errors))
            QVERIFY2(error.contains("Content Security Policy") || error.contains("nowhere.png"), qPrintable(error));
        page->page->errors.clear();
    }

    // A hostile document's preview holds no markup of the document's making:
    // link targets are web, mail or relative addresses and nothing runs.
    void markdownPreviewRunsNothingFromTheDocument()
    {
        page->eval(stateScript("[a](javascript:window.ran=1) [b](https://example.org/x?y=1&z=2) [c](mailto:a@b.c)\n"
                               "[d](rel/page.html) [e](data:text/html,x) ![i](x\"onerror=\"window.ran=2)\n"
                               "<script>window.ran=3</script> ![j](y'onerror='window.ran=4)\n",
                               "markdown"));
        page->eval(runPluginScript("Preview Markdown", shippedPlugin("Preview Markdown")));
        QTRY_VERIFY(core->received("loadHtml_label_withBasePath_"));
        ConsoleRecordingPage preview;
        QSignalSpy loaded(&preview, &QWebEnginePage::loadFinished);
        preview.setHtml(core->argumentsOf("loadHtml_label_withBasePath_").value(0));
        QVERIFY(loaded.wait(20000));
        QTest::qWait(300);  // lets failed images report
        QCOMPARE(evaluated(preview, "Array.from(document.links, function (a) { return a.getAttribute('href'); }).join(' ')"),
                 QStringLiteral("# https://example.org/x?y=1&z=2 mailto:a@b.c rel/page.html #"));
        QCOMPARE(evaluated(preview, "String(document.querySelectorAll('script, [onerror]').length)"), QStringLiteral("0"));
        QCOMPARE(evaluated(preview, "typeof window.ran"), QStringLiteral("undefined"));
    }

    void utilityPageShowsAReadOnlyEditor()
    {
        RecordingCore utilityCore;
        EditorPage utility(&utilityCore, QStringLiteral("Data/Html/uindex.html"));
        QVERIFY(utility.load());
        utility.eval(stateScript("print('read only')\n", "python", true));
        utility.eval("$('.panel-tabs').hide();");
        utility.eval("lw.setTheme('monokai'); lw.editor.getSession().setUseWorker(false);");
        QCOMPARE(utility.evalString("lw.getMode();"), QStringLiteral("python"));
        QVERIFY(utility.eval("lw.editor.getReadOnly()").toBool());
        QVERIFY(!utility.eval("$('.panel-tabs').is(':visible')").toBool());
        utility.eval(stateScript("print('again')\n", "python", true));
        QVERIFY(!utility.eval("lw.editor.session.getUseWorker()").toBool());
        utility.eval("lw.editor.selectAll(); lw.editor.execCommand('insertstring', 'typed');");
        QCOMPARE(utility.evalString("lw.getValue()"), QStringLiteral("print('again')\n"));
        QVERIFY(!utilityCore.received("currentLocationChanged_"));
        QVERIFY2(utility.page->errors.isEmpty(), qPrintable(utility.page->errors.join('\n')));
    }

private:
    std::unique_ptr<RecordingCore> core;
    std::unique_ptr<EditorPage> page;
};

QTEST_MAIN(TestEditorPage)
#include "tst_editorpage.moc"
