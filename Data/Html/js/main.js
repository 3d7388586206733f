// Starts the page: lays out the editor and the panel, creates the editor and
// its helpers, publishes the page globals (lw, $Terminal, setTerminalStdin)
// and reports editing and cursor moves to the shell.
(function (global) {
  'use strict';

  var $ = global.jQuery;
  var GENERIC_FONTS = /(^|,)\s*(monospace|serif|sans-serif|cursive|fantasy|system-ui)\s*$/;
  var isUtility = document.body.getAttribute('data-role') === 'utility';

  // Family names given by the shell may be missing here ("Menlo"): a
  // monospace fallback keeps the editor's character grid.
  function withMonospaceFallback(family) {
    family = String(family || '').trim();
    if (family === '')
      return 'monospace';
    if (GENERIC_FONTS.test(family))
      return family;
    var quoted = /[\s]/.test(family) && !/[,'"]/.test(family) ? "'" + family + "'" : family;
    return quoted + ', monospace';
  }

  function createEditor() {
    global.ace.config.set('basePath', 'ace');
    var editor = global.ace.edit('editor');
    var setOption = editor.setOption;
    editor.setOption = function (name, value) {
      return setOption.call(this, name, name === 'fontFamily' ? withMonospaceFallback(value) : value);
    };
    editor.setOptions({ fontFamily: 'Menlo', fontSize: 12, animatedScroll: false });
    editor.setTheme('ace/theme/textmate');
    editor.$blockScrolling = Infinity;
    return editor;
  }

  // The caret blinks while the user works and stays solid once nothing has
  // happened for a while: a blinking caret redraws the page twice a second
  // and keeps an idle editor busy.
  var CARET_REST_MS = 5000;

  function restCaretWhenIdle(editor) {
    var cursor = editor.renderer.$cursorLayer;
    var timer = null;
    function wake() {
      cursor.setBlinking(!editor.getReadOnly());
      clearTimeout(timer);
      timer = setTimeout(function () { cursor.setBlinking(false); }, CARET_REST_MS);
    }
    ['focus', 'change', 'changeSelection', 'changeSession'].forEach(function (name) { editor.on(name, wake); });
    wake();
  }

  // Coalesces bursts of calls into one call per animation frame.
  function perFrame(callback) {
    var pending = false;
    return function () {
      if (pending)
        return;
      pending = true;
      global.requestAnimationFrame(function () {
        pending = false;
        callback();
      });
    };
  }

  function reportToShell(editor, panel) {
    var location = perFrame(function () {
      var cursor = editor.getCursorPosition();
      global.Bridge.notify('currentLocationChanged_', ['Line ' + (cursor.row + 1) + ', Column ' + (cursor.column + 1)]);
    });
    var changed = perFrame(function () { global.Bridge.notify('currentDocumentChanged', []); });
    editor.on('changeSelection', location);
    editor.on('change', changed);
    panel.onUserClose(function () { global.Bridge.notify('panelToggled_', [false]); });
  }

  function reportUncaughtErrors() {
    global.addEventListener('error', function (event) {
      global.reportPageError('Script error', event.error || event.message);
    });
    global.addEventListener('unhandledrejection', function (event) {
      global.reportPageError('Unhandled promise rejection', event.reason);
    });
  }

  function start() {
    var panel = global.Panel;
    panel.build(document.body);
    var editor = createEditor();
    restCaretWhenIdle(editor);
    panel.onResize(function () { editor.resize(); });
    var settings = new global.SessionSettings();
    var terminal = new global.Terminal('#terminal', function () { editor.focus(); });
    editor.on('focus', function () { terminal.release(); });
    global.$Terminal = terminal.api();
    global.setTerminalStdin = function (enabled) { terminal.setStdin(enabled); };
    global.lw = global.LwApi.create({
      editor: editor,
      settings: settings,
      sessions: new global.Sessions(editor, settings),
      search: new global.Search(editor),
      panel: panel,
      terminal: terminal
    });
    settings.applyTo(editor.session);
    if (!isUtility)
      reportToShell(editor, panel);
    reportUncaughtErrors();
    editor.focus();
    // The shell hands the page the keyboard after the editor asked for it:
    // the editor takes it then, unless the terminal has it.
    global.addEventListener('focus', function () {
      if (!global.$Terminal.hasFocus())
        editor.focus();
    });
  }

  start();
})(window);
