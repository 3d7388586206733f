// The object a running plugin receives as `plugin` (and `this`):
//
//   plugin.name, plugin.path       the plugin and its bundle folder
//   plugin.editor.text()           the whole text of the current document
//   plugin.editor.selection()      the selected text, "" when nothing is selected
//   plugin.editor.transform(fn)    replaces the selection, or the whole text when
//                                  nothing is selected, with fn(text), as one undo step
//   plugin.editor.setText(text), .replaceSelection(text), .insert(text)
//   plugin.document.path()         full path of the current document, "" when untitled
//   plugin.document.label()        its label
//   plugin.utility.show(html, label, basePath)   HTML in the utility pane
//   plugin.utility.showFile(pathOrUrl, label)    a file or address there
//   plugin.utility.showEditor(text, label, mode) a read-only editor there
//   plugin.menu({ title: fn, ... }) the plugin's menu in the utility pane;
//                                  plugin.menu() answers it
//   plugin.status(message)         a message in the status bar for a moment
//   plugin.echo(values...)         prints to the terminal
//   plugin.alert(title, text), plugin.confirm(title, text), plugin.input(title, default)
//                                  dialogs answering Promises (true for OK, the typed text);
//                                  a cancelled dialog leaves its Promise pending
//   plugin.run(argv, {env, onOutput}) runs argv in the terminal's shell session,
//                                  output streaming to the terminal; Promise of the output
//   plugin.exec(argv, env)         runs a program directly; Promise of its output
//   plugin.tempFile(text, ext)     Promise of the path of a new temporary file
//   plugin.binaries()              Promise of { node, clojure, lua, typescript } paths
//   plugin.onHalt(fn), plugin.halt()
//   plugin.backend                 every backend operation with a Promise result:
//                                  plugin.backend.getClipboard().then (text) -> ...
(function (global) {
  'use strict';

  var STATUS_SECONDS = 4;

  // backend.someMethod_(args...) calls core.someMethod_ and answers a Promise.
  var backend = new Proxy({}, {
    get: function (target, method) {
      if (typeof method !== 'string' || method === 'then')  // not a thenable
        return undefined;
      return function () {
        return global.Bridge.call(method, Array.prototype.slice.call(arguments));
      };
    }
  });

  function callbackPromise(start, placeholder) {
    return new Promise(function (resolve) {
      start(global.$Callbacks.format(global.$Callbacks.register(resolve), placeholder));
    });
  }

  function editorApi(lw) {
    return {
      text: function () { return lw.getValue(); },
      selection: function () { return lw.getSelection(); },
      setText: function (text) { lw.setValue(text); },
      replaceSelection: function (text) { lw.replaceSelection(text); },
      insert: function (text) { lw.insert(text); },
      transform: function (fn) {
        var selected = lw.getSelection();
        var source = selected !== '' ? selected : lw.getValue();
        var result = String(fn(source));
        if (result === source)
          return;
        if (selected !== '')
          lw.replaceSelection(result);
        else
          lw.setValue(result);
      }
    };
  }

  function utilityApi(plugin) {
    function label(text) { return String(text || plugin.name); }
    return {
      show: function (html, title, basePath) {
        global.Bridge.notify('loadHtml_label_withBasePath_', [String(html), label(title), String(basePath || '')]);
      },
      showFile: function (path, title) {
        global.Bridge.notify('loadUtility_label_', [String(path), label(title)]);
      },
      showEditor: function (content, title, mode) {
        global.Bridge.notify('loadEditorUtility_label_mode_', [String(content), label(title), String(mode || 'text')]);
      }
    };
  }

  // documentFacts: { path, label } of the current document, fetched before
  // the plugin starts so that plugins can read them synchronously.
  function Plugin(name, path, documentFacts) {
    this.name = name;
    this.path = path;
    this.backend = backend;
    this.editor = editorApi(global.lw);
    this.document = {
      path: function () { return documentFacts.path; },
      label: function () { return documentFacts.label; }
    };
    this.utility = utilityApi(this);
    this.items = {};
    this.haltHandlers = [];
  }

  // Fetches what Plugin needs from the backend; empty facts without a host.
  Plugin.documentFacts = function () {
    if (!global.Bridge.isConnected())
      return Promise.resolve({ path: '', label: '' });
    return Promise.all([backend.getFullPath(), backend.getLabel()]).then(function (answers) {
      return { path: answers[0] || '', label: answers[1] || '' };
    });
  };

  Plugin.prototype.menu = function (items) {
    if (items === undefined)
      return this.items;
    this.items = items || {};
    global.Bridge.notify('registerPluginMenu_', [JSON.stringify(Object.keys(this.items))]);
    return this.items;
  };

  Plugin.prototype.onHalt = function (handler) { this.haltHandlers.push(handler); };

  Plugin.prototype.halt = function () {
    if (global.$Core.currentPlugin === this)
      global.$Core.haltPlugin();
  };

  Plugin.prototype.status = function (message) {
    global.Bridge.notify('showStatus_', [String(message)]);
    setTimeout(function () { global.Bridge.notify('hideStatus', []); }, STATUS_SECONDS * 1000);
  };

  Plugin.prototype.echo = function () {
    var text = Array.prototype.map.call(arguments, global.inspectObject).join(' ');
    global.$Terminal.show();
    global.$Terminal.echo(text);
  };

  Plugin.prototype.run = function (argv, options) {
    options = options || {};
    var onOutput = options.onOutput || function (chunk) { global.$Terminal.write(chunk); };
    var outputId = global.$Callbacks.register(onOutput, false);
    global.$Terminal.show();
    return callbackPromise(function (completed) {
      global.Bridge.notify('terminalExec_env_action_completed_', [JSON.stringify(argv),
        options.env ? JSON.stringify(options.env) : '', global.$Callbacks.format(outputId, '%@'), completed]);
    }, '%@').then(function (output) {
      global.$Callbacks.drop(outputId);
      return output;
    });
  };

  Plugin.prototype.exec = function (argv, env) {
    return env ? backend.exec_env_(JSON.stringify(argv), JSON.stringify(env)) : backend.exec_(JSON.stringify(argv));
  };

  Plugin.prototype.tempFile = function (text, extension) {
    return backend.getTempFile_withExtension_(String(text), String(extension));
  };

  Plugin.prototype.binaries = function () {
    return backend.getBinariesIndex().then(function (json) { return JSON.parse(json || '{}'); });
  };

  Plugin.prototype.input = function (title, defaultText) {
    return callbackPromise(function (callback) {
      global.Bridge.notify('inputDialogWithTitle_default_callback_', [String(title), String(defaultText || ''), callback]);
    }, '%@');
  };

  Plugin.prototype.confirm = function (title, text) {
    return callbackPromise(function (callback) {
      global.Bridge.notify('confirmDialogWithTitle_information_callback_', [String(title), String(text || ''), callback]);
    }, '%d').then(function (answer) { return answer === 1; });
  };

  Plugin.prototype.alert = function (title, text) {
    return callbackPromise(function (callback) {
      global.Bridge.notify('alertDialogWithTitle_information_callback_', [String(title), String(text || ''), callback]);
    }, '%@');
  };

  global.Plugin = Plugin;
})(window);
