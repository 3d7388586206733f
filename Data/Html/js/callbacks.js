// Native operations answer through callback format strings: the backend fills
// a placeholder ("%@" text, "%f" or "%d" numbers) and evaluates the result in
// the page. $Callbacks turns a page function into such a string, e.g.
// "$Callbacks.run(7,'%@')", and routes the evaluation back to the function.
(function (global) {
  'use strict';

  var handlers = {};
  var nextId = 1;

  // once: the handler is forgotten after its first call.
  function register(handler, once) {
    var id = nextId++;
    handlers[id] = { handler: handler, once: once !== false };
    return id;
  }

  function format(id, placeholder) {
    var argument = placeholder === '%@' ? "'%@'" : placeholder;
    return '$Callbacks.run(' + id + ',' + argument + ')';
  }

  function run(id, value) {
    var entry = handlers[id];
    if (!entry) {
      global.Bridge.log('Callback ' + id + ' arrived after it was dropped');
      return;
    }
    if (entry.once)
      delete handlers[id];
    try {
      entry.handler(value);
    } catch (err) {
      global.reportPageError('Callback', err);
    }
  }

  function drop(id) {
    delete handlers[id];
  }

  global.$Callbacks = { register: register, format: format, run: run, drop: drop };
})(window);
