// $Core: the plugin runtime. The shell starts a plugin with
// "$Core.runPlugin('<name>','<bundle path>',[<CoffeeScript source>]);": the
// source is compiled here and run as the body of a function receiving
//
//   plugin   the running plugin (also `this`), see Plugin below
//   lw       the editor API (getValue, setValue, getSelection,
//            replaceSelection, insert, setMode, goToLine, ...)
//   backend  the backend "core" with promise results:
//            backend.getFullPath().then (path) -> ...
//
// Errors, at compile time or later in promise chains, are printed to the
// terminal with inspectObject. "$Core.haltPlugin()" stops the running plugin.
(function (global) {
  'use strict';

  // backend.someMethod_(args...) calls core.someMethod_ and answers a Promise.
  var backend = new Proxy({}, {
    get: function (target, method) {
      if (typeof method !== 'string' || method === 'then')  // not a thenable
        return undefined;
      return function () {
        return global.Bridge.call(String(method), Array.prototype.slice.call(arguments));
      };
    }
  });

  function callbackPromise(start, placeholder) {
    return new Promise(function (resolve) {
      start(global.$Callbacks.format(global.$Callbacks.register(resolve), placeholder));
    });
  }

  function Plugin(name, path) {
    this.name = name;
    this.path = path;
    this.backend = backend;
    this.items = {};
    this.haltHandlers = [];
  }

  // With items ({ title: function }) sets the plugin's menu in the utility
  // pane; without, answers the current items.
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

  // Prints values to the terminal (strings as they are, others inspected).
  Plugin.prototype.echo = function () {
    var text = Array.prototype.map.call(arguments, global.inspectObject).join(' ');
    global.$Terminal.show();
    global.$Terminal.echo(text);
  };

  // Runs argv (an array) in the terminal's shell session. Output streams to
  // the terminal unless options.onOutput takes it; options.env is an object
  // of environment variables. Answers a Promise of the whole output.
  Plugin.prototype.run = function (argv, options) {
    options = options || {};
    var onOutput = options.onOutput || function (chunk) { global.$Terminal.write(chunk); };
    var outputId = global.$Callbacks.register(onOutput, false);
    global.$Terminal.show();
    return callbackPromise(function (completed) {
      global.Bridge.call('terminalExec_env_action_completed_', [JSON.stringify(argv),
        options.env ? JSON.stringify(options.env) : '', global.$Callbacks.format(outputId, '%@'), completed]);
    }, '%@').then(function (output) {
      global.$Callbacks.drop(outputId);
      return output;
    });
  };

  // Runs argv directly (no shell) and answers a Promise of its output.
  Plugin.prototype.exec = function (argv, env) {
    return env ? backend.exec_env_(JSON.stringify(argv), JSON.stringify(env)) : backend.exec_(JSON.stringify(argv));
  };

  Plugin.prototype.tempFile = function (text, extension) {
    return backend.getTempFile_withExtension_(String(text), String(extension));
  };

  Plugin.prototype.binaries = function () {
    return backend.getBinariesIndex().then(function (json) { return JSON.parse(json || '{}'); });
  };

  // The current document: its path, label, text and mode.
  Plugin.prototype.document = function () {
    return Promise.all([backend.getFullPath(), backend.getLabel()]).then(function (answers) {
      return { path: answers[0], label: answers[1], content: global.lw.getValue(), mode: global.lw.getMode() };
    });
  };

  // Dialogs answer Promises; a cancelled dialog leaves its Promise pending.
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

  // Utility pane: HTML, a file or URL, or a read-only editor.
  Plugin.prototype.showHtml = function (html, label) {
    global.Bridge.notify('loadUtilityHtml_label_', [String(html), String(label || this.name)]);
  };

  Plugin.prototype.showFile = function (path, label) {
    global.Bridge.notify('loadUtility_label_', [String(path), String(label || this.name)]);
  };

  Plugin.prototype.showEditor = function (content, label, mode) {
    global.Bridge.notify('loadEditorUtility_label_mode_', [String(content), String(label || this.name), String(mode || 'text')]);
  };

  function sourceOf(sources) {
    var source = Array.isArray(sources) ? sources[0] : sources;
    return typeof source === 'string' ? source : '';
  }

  function compile(sources, bare) {
    return global.CoffeeScript.compile(sourceOf(sources), { bare: bare !== false });
  }

  var core = {
    currentPlugin: null,

    runPlugin: function (name, path, sources) {
      core.haltPlugin();
      var plugin = new Plugin(String(name), String(path));
      core.currentPlugin = plugin;
      try {
        var body = new Function('plugin', 'lw', 'backend', compile(sources, true));
        body.call(plugin, plugin, global.lw, backend);
      } catch (err) {
        global.reportPageError("Plugin '" + plugin.name + "'", err);
      }
      return plugin;
    },

    haltPlugin: function () {
      var plugin = core.currentPlugin;
      if (!plugin)
        return;
      core.currentPlugin = null;
      plugin.haltHandlers.forEach(function (handler) {
        try {
          handler();
        } catch (err) {
          global.reportPageError("Halting plugin '" + plugin.name + "'", err);
        }
      });
      global.Bridge.notify('registerPluginMenu_', ['[]']);
    },

    // Compiles CoffeeScript ([source]) and, when run is true, runs it in the
    // page's global scope. Answers the JavaScript, or '' after a reported error.
    coffee: function (sources, run, bare) {
      try {
        var js = compile(sources, bare);
        if (run === true)
          (0, eval)(js);
        return js;
      } catch (err) {
        global.reportPageError('CoffeeScript', err);
        return '';
      }
    },

    backend: backend,
    Plugin: Plugin
  };

  global.$Core = core;
})(window);
