// lw: the editor API that the shell drives with short script strings
// ("lw.selectLine();", "lw.setState({...});") and that plugins use.
(function (global) {
  'use strict';

  var BOOKMARK_CLASS = 'lw-bookmark';
  var MIN_FONT_SIZE = 1;

  // The selection object belongs to the session shown, so it is looked up
  // at every call.
  function commands(editor) {
    function selection() { return editor.selection; }
    return {
      selectWord: function () { selection().selectWord(); },
      selectLine: function () { selection().selectLine(); },
      selectLineStart: function () { selection().selectLineStart(); },
      selectLineEnd: function () { selection().selectLineEnd(); },
      selectFileStart: function () { selection().selectFileStart(); },
      selectFileEnd: function () { selection().selectFileEnd(); },
      selectAll: function () { editor.selectAll(); },
      deselectAll: function () { editor.clearSelection(); },
      indent: function () { editor.blockIndent(); },
      outdent: function () { editor.blockOutdent(); },
      moveUp: function () { editor.moveLinesUp(); },
      moveDown: function () { editor.moveLinesDown(); },
      toggleComments: function () { editor.toggleCommentLines(); },
      scrollPageUp: function () { editor.scrollPageUp(); },
      scrollPageDown: function () { editor.scrollPageDown(); },
      scrollToSelection: function () { editor.centerSelection(); },
      foldAll: function () { editor.session.foldAll(); },
      unfoldAll: function () { editor.session.unfold(); },
      foldCurrent: function () { foldAt(editor.session, editor.getCursorPosition().row); },
      unfoldCurrent: function () { unfoldAt(editor.session, editor.getCursorPosition().row); }
    };
  }

  // Folds the block starting on the row or, failing that, the one around it.
  function foldAt(session, row) {
    var range = session.getFoldWidgetRange(row) || session.getParentFoldRangeData(row).range;
    if (range && !range.isEmpty() && !session.getFoldAt(range.start.row, range.start.column, 1))
      session.addFold('...', range);
  }

  // Opens the folds shown on the row.
  function unfoldAt(session, row) {
    var foldLine = session.getFoldLine(row);
    if (foldLine)
      session.expandFolds(foldLine.folds.slice());
  }

  // Every command acts on the editor and gives the focus back to it.
  function focusing(table, editor) {
    Object.keys(table).forEach(function (name) {
      var command = table[name];
      table[name] = function () {
        command();
        editor.focus();
      };
    });
    return table;
  }

  function bookmarks(editor) {
    function row() { return editor.getCursorPosition().row; }
    return {
      bookmarkMarkCurrent: function () { editor.session.setBreakpoint(row(), BOOKMARK_CLASS); },
      bookmarkUnmarkCurrent: function () { editor.session.clearBreakpoint(row()); },
      bookmarkRemoveAll: function () { editor.session.clearBreakpoints(); },
      // Rows (from 0) carrying a bookmark.
      getBookmarks: function () {
        return editor.session.getBreakpoints().reduce(function (rows, mark, index) {
          if (mark === BOOKMARK_CLASS)
            rows.push(index);
          return rows;
        }, []);
      }
    };
  }

  // Line numbers from the shell are typed by the user; anything that is not
  // a positive number is logged and ignored.
  function goToLine(editor) {
    return function (line) {
      var number = parseInt(line, 10);
      if (!(number >= 1)) {
        global.Bridge.log('lw.goToLine: not a line number: ' + String(line));
        return;
      }
      editor.gotoLine(number, 0, false);
      editor.focus();
    };
  }

  function view(editor, settings, panel) {
    var renderer = editor.renderer;
    function session(name, value) { settings.set(name, value, editor.session); }
    return {
      togglePanel: function (shown) { panel.setVisible(shown === true); },
      toggleGutter: function (shown) { renderer.setShowGutter(shown === true); },
      togglePrintMargin: function (shown) { renderer.setShowPrintMargin(shown === true); },
      toggleIndentationGuides: function (shown) { renderer.setDisplayIndentGuides(shown === true); },
      toggleInvisibles: function (shown) { renderer.setShowInvisibles(shown === true); },
      toggleSoftTabs: function (on) { session('useSoftTabs', on === true); },
      toggleWordWrap: function (on) { session('useWrapMode', on === true); },
      setTabSize: function (size) { session('tabSize', Math.max(1, parseInt(size, 10) || 1)); },
      setWrapLimit: function (limit) { session('wrapLimit', Math.max(0, parseInt(limit, 10) || 0)); },
      setFontSize: function (size) { editor.setFontSize(Math.max(MIN_FONT_SIZE, parseInt(size, 10) || MIN_FONT_SIZE)); },
      setTheme: function (name) {
        return global.AceModules.load('theme', name).then(function (id) {
          editor.setTheme(id);
        }, function (err) {
          global.Bridge.log("Theme '" + name + "' not applied: " + err.message);
        });
      },
      // The colours of the theme with this id as JSON, for the window around
      // the editor; "" while that theme is not yet applied.
      themeColors: function (id) {
        var theme = renderer.theme;
        if (!theme || renderer.$themeId !== id || !editor.container.classList.contains(theme.cssClass)) return '';
        var style = global.getComputedStyle(editor.container);
        return JSON.stringify({
          isDark: !!theme.isDark,
          cssClass: theme.cssClass,
          background: hexColor(style.backgroundColor),
          foreground: hexColor(style.color)
        });
      }
    };
  }

  // "rgb(39, 40, 34)" as "#272822"; "" for a transparent or unknown colour.
  function hexColor(css) {
    var parts = /rgba?\((\d+),\s*(\d+),\s*(\d+)(?:,\s*([\d.]+))?\)/.exec(css || '');
    if (!parts || parts[4] === '0') return '';
    return '#' + parts.slice(1, 4).map(function (part) {
      return ('0' + parseInt(part, 10).toString(16)).slice(-2);
    }).join('');
  }

  // Live completion of the document's words, the mode's keywords and its
  // snippets; Tab expands a snippet's trigger.
  function completion(editor) {
    return {
      setCompletion: function (on) {
        on = on === true;
        editor.setOptions({ enableBasicAutocompletion: on, enableLiveAutocompletion: on, enableSnippets: on });
      }
    };
  }

  function searching(editor, search, panel) {
    return {
      showSearchTab: function () { panel.showTab('search'); search.focus(); },
      find: function () { search.find(); },
      findNext: function () { search.findNext(); },
      findPrevious: function () { search.findPrevious(); },
      replace: function () { search.replace(); },
      replaceAll: function () { search.replaceAll(); },
      useSelectionForFind: function () { search.useSelection(); },
      searchOptRegexToggle: function (on) { search.setOption('regex', on); },
      searchOptCaseToggle: function (on) { search.setOption('case', on); },
      searchOptWholeWordToggle: function (on) { search.setOption('wholeWord', on); },
      getSelection: function () { return editor.getSelectedText(); }
    };
  }

  function state(sessions) {
    return {
      getState: function (knownTag) { return sessions.getState(knownTag == null ? null : String(knownTag)); },
      setState: function (value) { sessions.setState(value); },
      saveLocalState: function (token) { sessions.saveLocal(String(token)); },
      loadLocalState: function (token) { sessions.loadLocal(String(token)); },
      getMode: function () { return sessions.getMode(); },
      setMode: function (name) { return sessions.setMode(name); }
    };
  }

  // Text access for plugins; every change is one undoable step.
  function text(editor) {
    return {
      getValue: function () { return editor.getValue(); },
      setValue: function (value) { editor.session.doc.setValue(String(value)); },
      replaceSelection: function (value) {
        editor.session.replace(editor.getSelectionRange(), String(value));
      },
      insert: function (value) { editor.insert(String(value)); }
    };
  }

  function create(parts) {
    var editor = parts.editor;
    var api = {
      editor: editor,
      echo: function (text) { parts.terminal.show(); parts.terminal.write(text); }
    };
    [
      focusing(commands(editor), editor),
      bookmarks(editor),
      { goToLine: goToLine(editor) },
      view(editor, parts.settings, parts.panel),
      completion(editor),
      searching(editor, parts.search, parts.panel),
      state(parts.sessions),
      text(editor)
    ].forEach(function (group) { Object.assign(api, group); });
    return api;
  }

  global.LwApi = { create: create };
})(window);
