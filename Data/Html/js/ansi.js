// Turns program output carrying terminal escape sequences into the
// console's formatting. Colour and style selections (SGR: the 8 and 16
// colours, 256 colours, 24-bit colours, bold, italic, underline, inverse,
// reset) become styled runs; every other escape and control sequence is
// dropped. Text is escaped so that it can never read as formatting, and the
// console encodes it as text. The style carries over from one call to the
// next, and so does a sequence cut off at the end of a call.
(function (global) {
  'use strict';

  var $ = global.jQuery;
  var BASIC = ['#000000', '#cd3131', '#0dbc79', '#e5e510', '#2472c8', '#bc3fbc', '#11a8cd', '#e5e5e5'];
  var BRIGHT = ['#666666', '#f14c4c', '#23d18b', '#f5f543', '#3b8eea', '#d670d6', '#29b8db', '#ffffff'];
  var CUBE = [0, 95, 135, 175, 215, 255];
  var HELD_LIMIT = 4096;  // an unfinished sequence longer than this is not one
  // A whole sequence at the start of the text: CSI (group 1 holds an SGR's
  // parameters), OSC and the other string sequences, or a short escape.
  var SEQUENCE = /^\x1b(?:\[([0-?]*)[ -\/]*([@-~])|[\]PX^_][\s\S]*?(?:\x07|\x1b\\)|[ -\/]+[0-~]|[0-OQ-WYZ\\`-~])/;
  // The start of a sequence that the next call may complete.
  var UNFINISHED = /^\x1b(?:\[[0-?]*[ -\/]*|[\]PX^_][\s\S]*|[ -\/]*)$/;
  // Control characters other than tab and newline (a carriage return before
  // a newline included).
  var CONTROLS = /[\x00-\x08\x0b-\x1a\x1c-\x1f\x7f-\x9f]/g;

  function hex(r, g, b) {
    return '#' + [r, g, b].map(function (v) { return ('0' + v.toString(16)).slice(-2); }).join('');
  }

  function color256(n) {
    if (n < 8)
      return BASIC[n];
    if (n < 16)
      return BRIGHT[n - 8];
    if (n < 232) {
      n -= 16;
      return hex(CUBE[Math.floor(n / 36)], CUBE[Math.floor(n / 6) % 6], CUBE[n % 6]);
    }
    var gray = 8 + 10 * (n - 232);
    return hex(gray, gray, gray);
  }

  function byte(value) {
    return value >= 0 && value <= 255;
  }

  function AnsiStyler() {
    this.held = '';
    this.reset();
  }

  AnsiStyler.prototype.reset = function () {
    this.style = { bold: false, italic: false, underline: false, inverse: false, fg: '', bg: '' };
  };

  // An extended colour (38 or 48) starting at codes[i]; answers how many
  // codes it used.
  AnsiStyler.prototype.extendedColor = function (codes, i, key) {
    if (codes[i + 1] === 5 && byte(codes[i + 2])) {
      this.style[key] = color256(codes[i + 2]);
      return 3;
    }
    if (codes[i + 1] === 2 && byte(codes[i + 2]) && byte(codes[i + 3]) && byte(codes[i + 4])) {
      this.style[key] = hex(codes[i + 2], codes[i + 3], codes[i + 4]);
      return 5;
    }
    return codes.length - i;  // malformed: the rest is ignored
  };

  // Codes that set one attribute to a fixed value.
  var SETTINGS = {
    1: ['bold', true], 3: ['italic', true], 4: ['underline', true], 7: ['inverse', true],
    22: ['bold', false], 23: ['italic', false], 24: ['underline', false], 27: ['inverse', false],
    39: ['fg', ''], 49: ['bg', '']
  };

  // The colour a basic colour code selects, as [attribute, colour], or null.
  function basicColor(code) {
    if (code >= 30 && code <= 37) return ['fg', BASIC[code - 30]];
    if (code >= 40 && code <= 47) return ['bg', BASIC[code - 40]];
    if (code >= 90 && code <= 97) return ['fg', BRIGHT[code - 90]];
    if (code >= 100 && code <= 107) return ['bg', BRIGHT[code - 100]];
    return null;
  }

  AnsiStyler.prototype.select = function (parameters) {
    var codes = parameters.split(/[;:]/).map(function (code) { return code === '' ? 0 : Number(code); });
    for (var i = 0; i < codes.length;) {
      var code = codes[i];
      if (code === 38 || code === 48) {
        i += this.extendedColor(codes, i, code === 38 ? 'fg' : 'bg');
        continue;
      }
      var setting = code === 0 ? null : SETTINGS[code] || basicColor(code);
      if (code === 0)
        this.reset();
      else if (setting)
        this.style[setting[0]] = setting[1];
      i++;
    }
  };

  // Plain text in the current style, one formatting run per line.
  AnsiStyler.prototype.styled = function (text) {
    var s = this.style;
    var fg = s.inverse ? (s.bg || '#000000') : s.fg;
    var bg = s.inverse ? (s.fg || '#e5e5e5') : s.bg;
    var letters = (s.bold ? 'b' : '') + (s.italic ? 'i' : '') + (s.underline ? 'u' : '');
    var open = letters || fg || bg ? '[[' + letters + ';' + fg + ';' + bg + ']' : '';
    return text.replace(CONTROLS, '').split('\n').map(function (line) {
      var escaped = $.terminal.escape_brackets(line);
      return open && escaped ? open + escaped + ']' : escaped;
    }).join('\n');
  };

  // The text in console formatting. Called with successive pieces of one
  // stream.
  AnsiStyler.prototype.format = function (text) {
    text = this.held + text;
    this.held = '';
    var out = '';
    for (var at = text.indexOf('\x1b'); at >= 0; at = text.indexOf('\x1b')) {
      out += this.styled(text.slice(0, at));
      text = text.slice(at);
      var match = SEQUENCE.exec(text);
      if (match) {
        if (match[2] === 'm')
          this.select(match[1]);
        text = text.slice(match[0].length);
      } else if (text.length < HELD_LIMIT && UNFINISHED.test(text)) {
        this.held = text;
        return out;
      } else {
        text = text.slice(1);  // a lone escape character
      }
    }
    return out + this.styled(text);
  };

  global.AnsiStyler = AnsiStyler;
})(window);
