// Editing options that the View menu sets for the whole editor but that the
// editor keeps per edit session (soft tabs, tab size, wrapping). They are held
// here and applied to every session that comes into the editor.
(function (global) {
  'use strict';

  function SessionSettings() {
    this.values = { useSoftTabs: true, tabSize: 4, useWrapMode: false, wrapLimit: 0 };
  }

  SessionSettings.prototype.applyTo = function (session) {
    var v = this.values;
    session.setUseSoftTabs(v.useSoftTabs);
    session.setTabSize(v.tabSize);
    session.setUseWrapMode(v.useWrapMode);
    // A limit of 0 wraps at the window edge.
    session.setWrapLimitRange(v.wrapLimit || null, v.wrapLimit || null);
  };

  SessionSettings.prototype.set = function (name, value, session) {
    this.values[name] = value;
    this.applyTo(session);
  };

  global.SessionSettings = SessionSettings;
})(window);
