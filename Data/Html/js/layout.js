// The page layout: the editor filling the view and, below it, a panel with
// tabs (search and terminal). Panel shows, hides and switches tabs and tells
// listeners when the editor's room changes.
(function (global) {
  'use strict';

  var TEMPLATE =
    '<div id="workspace">' +
    '  <div id="editor"></div>' +
    '  <div id="panel" class="panel">' +
    '    <div class="panel-tabs">' +
    '      <button class="panel-tab" data-tab="search">Search</button>' +
    '      <button class="panel-tab" data-tab="terminal">Terminal</button>' +
    '      <span class="panel-spacer"></span>' +
    '      <button class="panel-close" title="Hide the panel">&#x2715;</button>' +
    '    </div>' +
    '    <div class="panel-page" data-page="search">' +
    '      <div class="search-row">' +
    '        <input id="search-find" type="text" placeholder="Find" spellcheck="false">' +
    '        <button data-search="findPrevious" title="Previous match">&#x25B2;</button>' +
    '        <button data-search="findNext" title="Next match">&#x25BC;</button>' +
    '        <label><input type="checkbox" data-option="regex"> Regex</label>' +
    '        <label><input type="checkbox" data-option="case"> Match case</label>' +
    '        <label><input type="checkbox" data-option="wholeWord"> Whole word</label>' +
    '        <select id="search-scope"><option>Document</option><option>Selection</option></select>' +
    '      </div>' +
    '      <div class="search-row">' +
    '        <input id="search-replace" type="text" placeholder="Replace" spellcheck="false">' +
    '        <button data-search="replace">Replace</button>' +
    '        <button data-search="replaceAll">Replace all</button>' +
    '        <span id="search-status"></span>' +
    '      </div>' +
    '    </div>' +
    '    <div class="panel-page" data-page="terminal"><div id="terminal"></div></div>' +
    '  </div>' +
    '</div>';

  var $ = global.jQuery;
  var resizeHandlers = [];
  var closeHandlers = [];

  function notifyResize() {
    resizeHandlers.forEach(function (handler) { handler(); });
  }

  function isVisible() {
    return !$('#panel').hasClass('hidden');
  }

  function setVisible(visible) {
    if (visible === isVisible())
      return;
    $('#panel').toggleClass('hidden', !visible);
    notifyResize();
  }

  function activeTab() {
    return $('.panel-tab.active').data('tab');
  }

  function showTab(name) {
    $('.panel-tab').each(function () {
      $(this).toggleClass('active', $(this).data('tab') === name);
    });
    $('.panel-page').each(function () {
      $(this).toggleClass('active', $(this).data('page') === name);
    });
    setVisible(true);
    notifyResize();
  }

  function build(container) {
    $(container).prepend(TEMPLATE);
    $('.panel-tab').on('click', function () { showTab($(this).data('tab')); });
    $('.panel-close').on('click', function () {
      setVisible(false);
      closeHandlers.forEach(function (handler) { handler(); });
    });
    showTab('terminal');
  }

  global.Panel = {
    build: build,
    showTab: showTab,
    activeTab: activeTab,
    setVisible: setVisible,
    isVisible: isVisible,
    onResize: function (handler) { resizeHandlers.push(handler); },
    // Called when the user hides the panel with its close button.
    onUserClose: function (handler) { closeHandlers.push(handler); }
  };
})(window);
