// inspectObject renders any value as readable text for the terminal: errors
// with their stack, objects and arrays as indented JSON-like text (cycles and
// depth cut short). reportPageError prints a failure to the terminal and the
// native log.
(function (global) {
  'use strict';

  var MAX_DEPTH = 4;

  function describeError(err) {
    var text = (err.name || 'Error') + ': ' + err.message;
    if (err.location)  // CoffeeScript compile errors carry their position
      text += ' (line ' + (err.location.first_line + 1) + ', column ' + (err.location.first_column + 1) + ')';
    if (err.stack && err.stack.indexOf(err.message) >= 0)
      return err.stack;
    return err.stack ? text + '\n' + err.stack : text;
  }

  function render(value, depth, seen) {
    if (value instanceof Error)
      return describeError(value);
    if (typeof value === 'string')
      return depth === 0 ? value : JSON.stringify(value);
    if (typeof value === 'function')
      return '[function ' + (value.name || 'anonymous') + ']';
    if (value === null || typeof value !== 'object')
      return String(value);
    if (seen.indexOf(value) >= 0)
      return '[circular]';
    if (depth >= MAX_DEPTH)
      return Array.isArray(value) ? '[...]' : '{...}';
    seen.push(value);
    var pad = new Array(depth + 2).join('  ');
    var parts = Array.isArray(value)
      ? value.map(function (item) { return pad + render(item, depth + 1, seen); })
      : Object.keys(value).map(function (key) { return pad + key + ': ' + render(value[key], depth + 1, seen); });
    seen.pop();
    var open = Array.isArray(value) ? '[' : '{', close = Array.isArray(value) ? ']' : '}';
    if (parts.length === 0)
      return open + close;
    return open + '\n' + parts.join(',\n') + '\n' + new Array(depth + 1).join('  ') + close;
  }

  global.inspectObject = function (value) {
    return render(value, 0, []);
  };

  global.reportPageError = function (context, err) {
    var text = context + ': ' + global.inspectObject(err);
    if (global.$Terminal) {
      global.$Terminal.show();
      global.$Terminal.echo(text);
    }
    global.Bridge.log(text);
  };
})(window);
