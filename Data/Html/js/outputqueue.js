// Streams text into a line-based console without blocking the page: chunks
// are queued as they arrive and written in slices from timer tasks, each
// slice kept within a small time budget, so floods of output leave the page
// free to handle input and timers between slices. Nobody reads a flood as it
// passes, so when more than keepLines lines (or KEEP_CHARS characters) wait,
// the older ones are counted and skipped with a note, and only the last are
// drawn. A trailing partial line waits for the rest of its line, or for a
// short pause, before it is shown; a line longer than LONG_LINE is shown in
// pieces as it comes, so that no line grows without bound.
(function (global) {
  'use strict';

  var BUDGET_MS = 25;
  var PARTIAL_WAIT_MS = 150;
  var MIN_SLICE = 2048;
  var MAX_SLICE = 8192;
  var KEEP_CHARS = 32 * 1024;
  var LONG_LINE = 4096;

  function countNewlines(text) {
    var count = 0;
    for (var at = text.indexOf('\n'); at >= 0; at = text.indexOf('\n', at + 1))
      count++;
    return count;
  }

  // writeLines(text) receives whole lines joined by "\n", without the last one.
  function OutputQueue(writeLines, keepLines) {
    this.writeLines = writeLines;
    this.keepLines = keepLines;
    this.chunks = [];          // { text, lines } waiting to be written
    this.waitingLines = 0;
    this.waitingChars = 0;
    this.partial = '';
    this.dropLineStart = false;  // the head of the next chunk ends a skipped line
    this.slice = 4096;
    this.timer = null;
    this.partialTimer = null;
    this.linesReceived = 0;
    this.charsReceived = 0;
  }

  OutputQueue.prototype.push = function (text) {
    if (text === '')
      return;
    // An oversized chunk goes in as two, so that its head can be skipped.
    if (text.length > KEEP_CHARS) {
      this.append(text.slice(0, text.length - KEEP_CHARS));
      text = text.slice(text.length - KEEP_CHARS);
    }
    this.append(text);
    this.schedule();
  };

  OutputQueue.prototype.append = function (text) {
    var lines = countNewlines(text);
    this.chunks.push({ text: text, lines: lines });
    this.waitingLines += lines;
    this.waitingChars += text.length;
    this.linesReceived += lines;
    this.charsReceived += text.length;
  };

  OutputQueue.prototype.schedule = function () {
    if (this.timer === null)
      this.timer = setTimeout(this.flushSlice.bind(this), 0);
  };

  // Whether the chunks after the first one alone still fill the console.
  OutputQueue.prototype.hasSurplus = function () {
    var first = this.chunks[0];
    return this.chunks.length > 1 &&
      (this.waitingLines - first.lines >= this.keepLines || this.waitingChars - first.text.length >= KEEP_CHARS);
  };

  OutputQueue.prototype.skipSurplus = function () {
    var lines = 0, chars = 0, last = null;
    while (this.hasSurplus()) {
      last = this.chunks.shift();
      this.waitingLines -= last.lines;
      this.waitingChars -= last.text.length;
      lines += last.lines;
      chars += last.text.length;
    }
    if (last) {
      this.partial = '';
      // The rest of a cut line is skipped too, unless the line is long
      // enough to be shown in pieces anyway.
      var lineStart = last.text.lastIndexOf('\n') + 1;
      this.dropLineStart = lineStart < last.text.length && last.text.length - lineStart < LONG_LINE;
      this.writeLines('\u2026 ' + (lines > 0 ? lines + ' lines' : chars + ' characters') + ' of output not shown \u2026');
    }
  };

  OutputQueue.prototype.takeSlice = function () {
    var taken = this.partial;
    this.partial = '';
    while (this.chunks.length && taken.length < this.slice) {
      var chunk = this.chunks[0];
      if (this.dropLineStart) {
        var end = chunk.text.indexOf('\n');
        if (end < 0) {  // the whole chunk continues the skipped line
          this.waitingChars -= chunk.text.length;
          this.chunks.shift();
          continue;
        }
        this.dropLineStart = false;
        chunk.text = chunk.text.slice(end + 1);
        chunk.lines--;
        this.waitingLines--;
        this.waitingChars -= end + 1;
      }
      var room = this.slice - taken.length;
      var piece = chunk.text.length <= room ? chunk.text : chunk.text.slice(0, room);
      var pieceLines = piece === chunk.text ? chunk.lines : countNewlines(piece);
      taken += piece;
      this.waitingLines -= pieceLines;
      this.waitingChars -= piece.length;
      if (piece === chunk.text) {
        this.chunks.shift();
      } else {
        chunk.text = chunk.text.slice(room);
        chunk.lines -= pieceLines;
      }
    }
    return taken;
  };

  // Writes one slice and adapts the slice size to the time it took.
  OutputQueue.prototype.flushSlice = function () {
    this.timer = null;
    clearTimeout(this.partialTimer);
    var started = performance.now();
    this.skipSurplus();
    var text = this.takeSlice();
    var end = text.lastIndexOf('\n');
    this.partial = text.slice(end + 1);
    if (end >= 0)
      this.writeLines(text.slice(0, end));
    if (this.partial.length > LONG_LINE)
      this.flushPartial();
    this.adaptSlice(text.length, performance.now() - started);
    if (this.chunks.length)
      this.schedule();
    else if (this.partial !== '')
      this.partialTimer = setTimeout(this.flushPartial.bind(this), PARTIAL_WAIT_MS);
  };

  // Sizes the next slice from the time per character of this one, smoothed
  // so that one slow write does not collapse the slices.
  OutputQueue.prototype.adaptSlice = function (written, spent) {
    if (written < MIN_SLICE)
      return;
    var fitting = written * BUDGET_MS / Math.max(spent, 1);
    this.slice = Math.round(Math.max(MIN_SLICE, Math.min(MAX_SLICE, (3 * this.slice + fitting) / 4)));
  };

  OutputQueue.prototype.flushPartial = function () {
    var text = this.partial;
    this.partial = '';
    if (text !== '')
      this.writeLines(text);
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
