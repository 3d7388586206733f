// Loads editor modes and themes by name from the installed files
// ("ace/mode-<name>.js", "ace/theme-<name>.js"). Unlike the editor's own
// loader it notices a missing or broken file, so callers can keep the
// current mode or theme and log why.
(function (global) {
  'use strict';

  var loading = {};

  function moduleId(kind, name) {
    return 'ace/' + kind + '/' + name;
  }

  function isDefined(id) {
    return Object.prototype.hasOwnProperty.call(global.ace.define.modules, id);
  }

  function loadScript(kind, name, id) {
    return new Promise(function (resolve, reject) {
      var script = document.createElement('script');
      script.src = 'ace/' + kind + '-' + encodeURIComponent(name) + '.js';
      script.onload = function () {
        if (isDefined(id))
          resolve(id);
        else
          reject(new Error(script.src + ' does not define ' + id));
      };
      script.onerror = function () {
        reject(new Error('no ' + kind + " named '" + name + "' is installed"));
      };
      document.head.appendChild(script);
    });
  }

  // Answers a Promise of the module id, e.g. "ace/mode/python".
  function load(kind, name) {
    if (typeof name !== 'string' || name === '' || /[\/\\]/.test(name))
      return Promise.reject(new Error('invalid ' + kind + ' name ' + JSON.stringify(name)));
    var id = moduleId(kind, name);
    if (isDefined(id))
      return Promise.resolve(id);
    if (!loading[id]) {
      loading[id] = loadScript(kind, name, id);
      loading[id].catch(function () { delete loading[id]; });
    }
    return loading[id];
  }

  // The name part of a module id ("ace/theme/monokai" gives "monokai").
  function nameOf(id) {
    return String(id || '').replace(/^ace\/(mode|theme)\//, '');
  }

  global.AceModules = { load: load, nameOf: nameOf };
})(window);
