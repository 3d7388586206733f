// Where the text of a state given to lw.setState() comes from: the text
// itself, or a reference { url } to a text the shell offers once under its
// own scheme. The shell serves large texts that way because the page reads
// them far faster than it parses them from a script.
(function (global) {
  'use strict';

  var OFFER_PREFIX = 'lwtext://';

  function fetchOffer(url) {
    if (url.indexOf(OFFER_PREFIX) !== 0) {
      global.Bridge.log('lw.setState: ignored a content address outside the shell: ' + url.slice(0, 80));
      return null;
    }
    try {
      var request = new XMLHttpRequest();
      request.open('GET', url, false);  // the state is applied before the next script runs
      request.send();
      if (request.status === 200)
        return request.responseText;
      global.Bridge.log('lw.setState: the text at ' + url + ' gave status ' + request.status);
    } catch (err) {
      global.Bridge.log('lw.setState: could not fetch the text at ' + url + ': ' + err.message);
    }
    return null;
  }

  // The text, or null when a reference could not be followed.
  function read(content) {
    if (typeof content === 'string')
      return content;
    if (content == null)
      return '';
    if (typeof content === 'object' && typeof content.url === 'string')
      return fetchOffer(content.url);
    return String(content);
  }

  global.TextSource = { read: read };
})(window);
