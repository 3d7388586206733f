// $Events: a small event bus. The shell fires events such as
// "$Events.exec('documentSaved');"; pages and plugins listen with on().
(function (global) {
  'use strict';

  var listeners = {};

  function on(name, handler) {
    (listeners[name] = listeners[name] || []).push(handler);
    return handler;
  }

  function off(name, handler) {
    listeners[name] = (listeners[name] || []).filter(function (h) { return h !== handler; });
  }

  // Calls every listener of the event with the remaining arguments; a failing
  // listener is reported and does not stop the others.
  function exec(name) {
    var args = Array.prototype.slice.call(arguments, 1);
    (listeners[name] || []).slice().forEach(function (handler) {
      try {
        handler.apply(null, args);
      } catch (err) {
        global.reportPageError("Listener of '" + name + "'", err);
      }
    });
  }

  global.$Events = { on: on, off: off, exec: exec };
})(window);
