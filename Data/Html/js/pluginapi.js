// The object a running plugin receives as `plugin` (and `this`); the full
// reference for plugin authors is docs/plugins.md. In short:
//
//   plugin.name, plugin.path, plugin.info   the plugin, its bundle folder, its manifest
//   plugin.editor.text(), .selection(), .transform(fn), .setText(text),
//                 .replaceSelection(text), .insert(text)
//   plugin.document.path(), .label(), .save()   the current document; save()
//                                  answers a Promise of the saved file's path
//   plugin.utility.show(html, label, basePath), .showFile(pathOrUrl, label),
//                  .showEditor(text, label, mode)   the utility pane
//   plugin.terminal.run(argv, {env, onOutput}), .echo(values...)   the terminal
//   plugin.menu({ title: fn, ... }), plugin.status(message)
//   plugin.alert(title, text), plugin.confirm(title, text), plugin.input(title, default)
//   plugin.exec(argv, env), plugin.tempFile(text, ext), plugin.binaries()
//   plugin.onHalt(fn), plugin.halt(), plugin.backend (every "core" operation, as Promises)
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

  function documentApi(facts) {
    return {
      path: function () { return facts.path; },
      label: function () { return facts.label; },
      save: function () { return backend.saveDocument().then(function (path) { return path || ''; }); }
    };
  }

  function terminalApi() {
    return {
      run: function (argv, options) {
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
      },
      echo: function () {
        var text = Array.prototype.map.call(arguments, global.inspectObject).join(' ');
        global.$Terminal.show();
        global.$Terminal.echo(text);
      }
    };
  }

  // facts: { path, label } of the current document and the plugin's manifest
  // (info), fetched before the plugin starts so that it can read them at once.
  function Plugin(name, path, facts) {
    this.name = name;
    this.path = path;
    this.info = facts.info;
    this.backend = backend;
    this.editor = editorApi(global.lw);
    this.document = documentApi(facts);
    this.utility = utilityApi(this);
    this.terminal = terminalApi();
    this.items = {};
    this.haltHandlers = [];
  }

  function parsedInfo(json) {
    try {
      var info = JSON.parse(json || '{}');
      return info !== null && typeof info === 'object' ? info : {};
    } catch (err) {
      return {};
    }
  }

  // Fetches what Plugin needs from the backend; empty facts without a host.
  Plugin.facts = function (bundlePath) {
    if (!global.Bridge.isConnected())
      return Promise.resolve({ path: '', label: '', info: {} });
    return Promise.all([backend.getFullPath(), backend.getLabel(), backend.pluginInfo_(bundlePath)])
      .then(function (answers) {
        return { path: answers[0] || '', label: answers[1] || '', info: parsedInfo(answers[2]) };
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
