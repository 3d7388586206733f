// Streams text into a line-based console without blocking the page: chunks
// are queued as they arrive and written in slices from timer tasks, each
// slice kept within a small time budget, so floods of output leave the page
// free to handle input and timers between slices. A trailing partial line
// waits for the rest of its line, or for a short pause, before it is shown.
(function (global) {
  'use strict';

  var BUDGET_MS = 12;
  var PARTIAL_WAIT_MS = 150;
  var MIN_SLICE = 4096;
  var MAX_SLICE = 4 * 1024 * 1024;

  function countLines(text) {
    var count = 1;
    for (var at = text.indexOf('\n'); at >= 0; at = text.indexOf('\n', at + 1))
      count++;
    return count;
  }

  // writeLines(text) receives whole lines joined by "\n", without the last one.
  function OutputQueue(writeLines) {
    this.writeLines = writeLines;
    this.chunks = [];
    this.partial = '';
    this.slice = 65536;
    this.timer = null;
    this.partialTimer = null;
    this.linesWritten = 0;
    this.charsReceived = 0;
  }

  OutputQueue.prototype.push = function (text) {
    if (text === '')
      return;
    this.chunks.push(text);
    this.charsReceived += text.length;
    this.schedule();
  };

  OutputQueue.prototype.schedule = function () {
    if (this.timer === null)
      this.timer = setTimeout(this.flushSlice.bind(this), 0);
  };

  OutputQueue.prototype.takeSlice = function () {
    var taken = this.partial;
    this.partial = '';
    while (this.chunks.length && taken.length < this.slice) {
      var room = this.slice - taken.length;
      var chunk = this.chunks[0];
      if (chunk.length <= room) {
        taken += this.chunks.shift();
      } else {
        taken += chunk.slice(0, room);
        this.chunks[0] = chunk.slice(room);
      }
    }
    return taken;
  };

  OutputQueue.prototype.emit = function (text) {
    if (text === '')
      return;
    this.writeLines(text);
    this.linesWritten += countLines(text);
  };

  // Writes one slice and adapts the slice size to the time it took.
  OutputQueue.prototype.flushSlice = function () {
    this.timer = null;
    clearTimeout(this.partialTimer);
    var started = performance.now();
    var text = this.takeSlice();
    var end = text.lastIndexOf('\n');
    this.partial = text.slice(end + 1);
    if (end >= 0)
      this.emit(text.slice(0, end));
    var spent = performance.now() - started;
    this.slice = Math.max(MIN_SLICE, Math.min(MAX_SLICE, Math.round(this.slice * (spent > BUDGET_MS ? 0.5 : 1.5))));
    if (this.chunks.length)
      this.schedule();
    else if (this.partial !== '')
      this.partialTimer = setTimeout(this.flushPartial.bind(this), PARTIAL_WAIT_MS);
  };

  OutputQueue.prototype.flushPartial = function () {
    var text = this.partial;
    this.partial = '';
    this.emit(text);
  };

  // The stream ended: a trailing partial line is shown once the queue drains.
  OutputQueue.prototype.end = function () {
    if (this.chunks.length === 0 && this.timer === null) {
      clearTimeout(this.partialTimer);
      this.flushPartial();
    }
  };

  OutputQueue.prototype.isIdle = function () {
    return this.chunks.length === 0 && this.timer === null && this.partial === '';
  };

  global.OutputQueue = OutputQueue;
})(window);
