// The search tab: find and replace in the editor with the regular
// expression, case and whole-word options and a document or selection scope.
// Options changed by the user in the tab are stored by the shell under the
// same defaults keys the Find menu uses.
(function (global) {
  'use strict';

  var $ = global.jQuery;
  var DEFAULTS_KEYS = { regex: 'LW_Search_Regex', 'case': 'LW_Search_Case', wholeWord: 'LW_Search_Whole_Word' };

  function Search(editor) {
    this.editor = editor;
    this.scopeRange = null;
    var self = this;
    $('[data-option]').on('change', function () {
      var option = $(this).data('option');
      global.Bridge.notify('searchOptChanged_withValue_', [DEFAULTS_KEYS[option], this.checked]);
    });
    $('[data-search]').on('click', function () { self[$(this).data('search')](); });
    $('#search-find').on('keydown', function (event) {
      if (event.key === 'Enter') {
        event.preventDefault();
        if (event.shiftKey) self.findPrevious(); else self.findNext();
      }
    });
    $('#search-scope').on('change', function () { self.scopeRange = null; });
  }

  Search.prototype.setOption = function (option, enabled) {
    $('[data-option="' + option + '"]').prop('checked', enabled === true);
  };

  Search.prototype.option = function (option) {
    return $('[data-option="' + option + '"]').prop('checked');
  };

  Search.prototype.status = function (text) {
    $('#search-status').text(text);
  };

  // The range searched in selection scope: the selection when the search
  // starts, kept while the matches found inside it get selected in turn.
  Search.prototype.range = function (restart) {
    if ($('#search-scope').val() !== 'Selection')
      return null;
    var selection = this.editor.getSelectionRange();
    if ((restart || !this.scopeRange) && !selection.isEmpty())
      this.scopeRange = selection;
    return this.scopeRange;
  };

  Search.prototype.options = function (restart, backwards) {
    return {
      needle: $('#search-find').val(),
      regExp: this.option('regex'),
      caseSensitive: this.option('case'),
      wholeWord: this.option('wholeWord'),
      range: this.range(restart),
      backwards: backwards === true,
      wrap: true,
      skipCurrent: !restart
    };
  };

  // Checks the needle; answers the options or null after showing why not.
  Search.prototype.validOptions = function (restart, backwards) {
    var options = this.options(restart, backwards);
    if (options.needle === '') {
      this.status('');
      return null;
    }
    if (options.regExp) {
      try {
        new RegExp(options.needle);
      } catch (err) {
        this.status('Invalid regular expression');
        return null;
      }
    }
    return options;
  };

  Search.prototype.run = function (restart, backwards) {
    var options = this.validOptions(restart, backwards);
    if (!options)
      return;
    var found = this.editor.find(options.needle, options);
    this.status(found ? '' : 'No match');
  };

  Search.prototype.find = function () { this.run(true, false); };
  Search.prototype.findNext = function () { this.run(false, false); };
  Search.prototype.findPrevious = function () { this.run(false, true); };

  Search.prototype.replace = function () {
    var options = this.validOptions(false, false);
    if (!options)
      return;
    // Replaces the match at the cursor, then moves on to the next one.
    options.skipCurrent = false;
    var replaced = this.editor.replace($('#search-replace').val(), options);
    this.status(replaced ? '' : 'No match');
    if (replaced)
      this.findNext();
  };

  Search.prototype.replaceAll = function () {
    var options = this.validOptions(true, false);
    if (!options)
      return;
    var count = this.editor.replaceAll($('#search-replace').val(), options);
    this.scopeRange = null;
    this.status(count ? 'Replaced ' + count : 'No match');
  };

  Search.prototype.useSelection = function () {
    var text = this.editor.getSelectedText();
    if (text === '')
      return;
    var lang = global.ace.require('ace/lib/lang');
    $('#search-find').val(this.option('regex') ? lang.escapeRegExp(text) : text);
    this.scopeRange = null;
  };

  Search.prototype.focus = function () {
    $('#search-find').trigger('focus').trigger('select');
  };

  global.Search = Search;
})(window);
