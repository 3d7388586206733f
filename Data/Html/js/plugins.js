// $Core: the plugin runtime. The shell starts a plugin with
// "$Core.runPlugin('<name>','<bundle path>',[<CoffeeScript source>]);": once
// the current document's path and label and the plugin's manifest are
// known, the source is compiled
// and run as the body of a function receiving `plugin` (the Plugin object of
// pluginapi.js, also `this`), `lw` (the editor API) and `backend` (the
// backend operations with Promise results). Errors, at compile time or later
// in Promise chains, are printed to the terminal with inspectObject.
// "$Core.haltPlugin()" stops the running plugin.
(function (global) {
  'use strict';

  function sourceOf(sources) {
    var source = Array.isArray(sources) ? sources[0] : sources;
    return typeof source === 'string' ? source : '';
  }

  function compile(sources, bare) {
    return global.CoffeeScript.compile(sourceOf(sources), { bare: bare !== false });
  }

  function start(plugin, sources) {
    try {
      var body = new Function('plugin', 'lw', 'backend', compile(sources, true));
      body.call(plugin, plugin, global.lw, plugin.backend);
    } catch (err) {
      global.reportPageError("Plugin '" + plugin.name + "'", err);
    }
  }

  var core = {
    currentPlugin: null,

    runPlugin: function (name, path, sources) {
      core.haltPlugin();
      return global.Plugin.facts(String(path)).then(function (facts) {
        var plugin = new global.Plugin(String(name), String(path), facts);
        core.currentPlugin = plugin;
        start(plugin, sources);
        return plugin;
      });
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
    }
  };

  global.$Core = core;
})(window);
