// The connection to the native object "core" that the host publishes through
// Qt WebChannel. Calls made before the channel is up wait in a bounded queue
// and go out, in order, once it connects. Every call answers a Promise of the
// native result; notify() is the fire-and-forget form.
(function (global) {
  'use strict';

  var QUEUE_LIMIT = 2000;
  var queue = [];
  var droppedCalls = 0;
  var core = null;

  function invoke(call) {
    var method = core[call.method];
    if (typeof method !== 'function') {
      call.reject(new Error('core has no method ' + call.method));
      return;
    }
    method.apply(core, call.args.concat([call.resolve]));
  }

  function enqueue(call) {
    if (queue.length >= QUEUE_LIMIT) {
      queue.shift().reject(new Error('native host not connected'));
      if (droppedCalls++ === 0)
        console.warn('Larkwood: no native host; dropping the oldest queued core calls');
    }
    queue.push(call);
  }

  function call(method, args) {
    return new Promise(function (resolve, reject) {
      var entry = { method: method, args: args || [], resolve: resolve, reject: reject };
      if (core)
        invoke(entry);
      else
        enqueue(entry);
    });
  }

  function notify(method, args) {
    call(method, args).catch(function (err) {
      console.warn('Larkwood: core.' + method + ' failed: ' + err.message);
    });
  }

  function connect() {
    if (typeof qt === 'undefined' || !qt.webChannelTransport || typeof QWebChannel === 'undefined') {
      console.info('Larkwood: page opened outside the host; core calls stay queued');
      return;
    }
    new QWebChannel(qt.webChannelTransport, function (channel) {
      if (!channel.objects.core) {
        console.warn('Larkwood: the host published no "core" object');
        return;
      }
      core = channel.objects.core;
      global.core = core;
      queue.splice(0).forEach(invoke);
    });
  }

  global.Bridge = {
    call: call,
    notify: notify,
    // Writes a line to the native log.
    log: function (text) { notify('jslog_', [String(text)]); },
    isConnected: function () { return core !== null; }
  };

  connect();
})(window);
