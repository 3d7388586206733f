// $Terminal: the console of the panel's terminal tab. A typed command runs in
// the shell session of the backend (terminalExec:env:action:completed:) with
// its output streaming back through "$Terminal.write('%@')". While it runs,
// one line typed in the console goes to its standard input; the backend ends
// the session with "window.setTerminalStdin(false);". Colour sequences in the
// output are shown as colours. The console takes the keyboard by a click or
// by toggleFocus(), which hands it back to the editor the next time.
(function (global) {
  'use strict';

  var $ = global.jQuery;
  var PROMPT = '$ ';
  var OUTPUT_LIMIT = 1000;  // lines kept in the console
  var FLOOD_LINES = 500;    // lines of a flood drawn once more than that waits
  var HISTORY_WRITES = 400;  // writes the console remembers before it forgets the older half

  // The command reaches bash as one double-quoted argument of eval, so eval
  // sees exactly what was typed (pipes, redirections and cd included); the
  // backend escapes the double quotes, the page the other characters that
  // are special inside double quotes.
  function evalArgument(command) {
    return command.replace(/[\\$`]/g, '\\$&');
  }

  // focusEditor() gives the keyboard back to the editor.
  function Terminal(element, focusEditor) {
    this.running = false;
    this.inputSent = false;
    this.focusEditor = focusEditor;
    this.styler = new global.AnsiStyler();
    this.output = new global.OutputQueue(this.writeLines.bind(this), FLOOD_LINES);
    this.console = $(element).terminal(this.interpret.bind(this), {
      greetings: false,
      prompt: PROMPT,
      outputLimit: OUTPUT_LIMIT,
      exit: false,
      checkArity: false,
      completion: false,
      // A display without a fine pointer would otherwise get the touch
      // input mode, which takes the keyboard only from touch events.
      inputStyle: 'textarea',
      enabled: false,  // the editor has the keyboard at first
      keymap: { 'CTRL+C': this.interrupt.bind(this) }
    });
  }

  Terminal.prototype.writeLines = function (text) {
    this.console.echo(this.styler.format(text), { exec: false });
    if (this.console.last_index() >= HISTORY_WRITES)
      this.forgetOldWrites();
  };

  // The console keeps every write it was given, beyond the lines it shows,
  // and walks them all on each new write: only the newer half is kept.
  Terminal.prototype.forgetOldWrites = function () {
    var view = this.console.export_view();
    view.lines = view.lines.slice(-HISTORY_WRITES / 2);
    this.console.import_view(view);
  };

  Terminal.prototype.interpret = function (command) {
    if (this.running)
      this.sendInput(command);
    else if (command.trim() !== '')
      this.exec(command);
  };

  Terminal.prototype.exec = function (command) {
    this.setStdin(true);
    global.Bridge.call('terminalExec_env_action_completed_',
      [JSON.stringify(['eval', evalArgument(command)]), '', '$Terminal.write(\'%@\')', ''])
      .catch(function (err) {
        global.reportPageError('Terminal', err);
        this.setStdin(false);
      }.bind(this));
  };

  // The session's standard input closes after one write.
  Terminal.prototype.sendInput = function (line) {
    if (this.inputSent) {
      this.echo('(the running command takes no more input)');
      return;
    }
    this.inputSent = true;
    global.Bridge.notify('terminalWrite_', [line + '\n']);
  };

  Terminal.prototype.interrupt = function () {
    if (!this.running)
      return;
    global.Bridge.notify('terminalKill', []);
    this.echo('^C');
    this.setStdin(false);
  };

  Terminal.prototype.toggleFocus = function () {
    if (this.console.enabled()) {
      this.console.disable();
      this.focusEditor();
    } else {
      this.show();
      this.console.focus();
    }
  };

  // Typing in the editor must not reach the console too.
  Terminal.prototype.release = function () {
    if (this.console.enabled())
      this.console.disable();
  };

  Terminal.prototype.setStdin = function (enabled) {
    this.running = enabled === true;
    this.inputSent = false;
    this.console.set_prompt(this.running ? '' : PROMPT);
    if (!this.running)
      this.output.end();
  };

  Terminal.prototype.write = function (text) {
    this.output.push(text == null ? '' : String(text));
  };

  Terminal.prototype.echo = function (text) {
    this.output.push((text == null ? '' : String(text)) + '\n');
  };

  // The object published as $Terminal.
  Terminal.prototype.api = function () {
    var self = this;
    return {
      echo: function (text) { self.echo(text); },
      write: function (text) { self.write(text); },
      exec: function (command) { self.show(); self.exec(String(command)); },
      show: function () { self.show(); },
      toggleFocus: function () { self.toggleFocus(); },
      hasFocus: function () { return self.console.enabled(); },
      clear: function () { self.console.clear(); },
      isRunning: function () { return self.running; },
      stats: function () {
        return { lines: self.output.linesReceived, chars: self.output.charsReceived, idle: self.output.isIdle() };
      },
      console: self.console
    };
  };

  Terminal.prototype.show = function () {
    global.Panel.showTab('terminal');
  };

  global.Terminal = Terminal;
})(window);
