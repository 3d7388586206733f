// Loads the style sheets and scripts shared by both editor pages (index.html
// and uindex.html differ only in their role), scripts in this order.
(function () {
  'use strict';

  var STYLES = ['lib/jquery.terminal.min.css', 'css/page.css'];
  var SCRIPTS = [
    'lib/jquery.min.js', 'lib/jquery.terminal.min.js', 'lib/coffeescript.js', 'ace/ace.js', 'ace/ext-language_tools.js',
    'js/bridge.js', 'js/inspect.js', 'js/events.js', 'js/callbacks.js', 'js/layout.js', 'js/modules.js',
    'js/sessionsettings.js', 'js/textsource.js', 'js/sessions.js', 'js/search.js', 'js/ansi.js', 'js/outputqueue.js',
    'js/terminal.js', 'js/lw.js', 'js/pluginapi.js', 'js/plugins.js', 'js/main.js'
  ];

  STYLES.forEach(function (href) {
    var link = document.createElement('link');
    link.rel = 'stylesheet';
    link.href = href;
    document.head.appendChild(link);
  });
  SCRIPTS.forEach(function (src) {
    var script = document.createElement('script');
    script.src = src;
    script.async = false;  // run in list order
    document.body.appendChild(script);
  });
})();
