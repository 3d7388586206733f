// One edit session per document. setState() puts a document's content and
// mode into a fresh session; saveLocalState(token) keeps the current session
// under the document's identity token, and loadLocalState(token) brings it
// back, with its undo history, cursor, selection, scroll, folds and
// bookmarks, after the following setState() of the same document.
//
// Each session remembers the content text it was last exchanged with (its
// snapshot) and a revision counter bumped on every change, so an unchanged
// session answers getState() and comparisons without joining its lines again.
//
// Each session also carries a tag naming its text: the one the shell gave
// with setState(), or "<session id>:<revision>" once it is edited. A state
// whose tag names a session the page keeps brings that session back without
// any text; getState(tag) leaves the content out when the tag still names
// the session's text, since the shell holds it already.
(function (global) {
  'use strict';

  var STORE_LIMIT = 64;
  // Tags that name no text: the one of a session whose text could not be had.
  var UNAVAILABLE = 'unavailable';
  // Page-made session ids differ from every earlier page's.
  var PAGE_ID = 'p' + Date.now().toString(36) + Math.random().toString(36).slice(2, 8);
  var sessionCount = 0;

  function Sessions(editor, settings) {
    this.editor = editor;
    this.settings = settings;
    this.store = new Map();  // token -> session, least recently used first
    this.prepare(editor.session, '', 'text');
  }

  Sessions.prototype.prepare = function (session, content, modeName, tag) {
    // The text a session starts with is not an edit: undo never removes it,
    // and the first edit starts an undo step of its own.
    session.getUndoManager().reset();
    session.markUndoGroup();
    session.lwId = PAGE_ID + '-' + (++sessionCount);
    session.lwRevision = 0;
    session.lwSnapshot = { revision: 0, content: content };
    session.lwTag = { name: tag || session.lwId + ':0', revision: 0 };
    session.lwModeName = modeName;
    session.on('change', function () { session.lwRevision++; });
    return session;
  };

  Sessions.prototype.current = function () {
    return this.editor.session;
  };

  Sessions.prototype.contentOf = function (session) {
    var snapshot = session.lwSnapshot;
    if (snapshot && snapshot.revision === session.lwRevision)
      return snapshot.content;
    var content = session.getValue();
    session.lwSnapshot = { revision: session.lwRevision, content: content };
    return content;
  };

  Sessions.prototype.tagOf = function (session) {
    if (session.lwTag.name === UNAVAILABLE)
      return UNAVAILABLE;
    if (session.lwTag.revision !== session.lwRevision)
      session.lwTag = { name: session.lwId + ':' + session.lwRevision, revision: session.lwRevision };
    return session.lwTag.name;
  };

  // The kept or shown session whose text the tag names, if any.
  Sessions.prototype.taggedSession = function (tag) {
    if (typeof tag !== 'string' || tag === '' || tag === UNAVAILABLE)
      return null;
    var candidates = [this.editor.session].concat(Array.from(this.store.values()));
    for (var session of candidates)
      if (this.tagOf(session) === tag)
        return session;
    return null;
  };

  Sessions.prototype.isStored = function (session) {
    for (var stored of this.store.values())
      if (stored === session)
        return true;
    return false;
  };

  // Shows the session in the editor; the outgoing one is released unless a
  // document keeps it.
  Sessions.prototype.attach = function (session) {
    var outgoing = this.editor.session;
    if (outgoing === session)
      return;
    session.setUseWorker(outgoing.getUseWorker());
    this.settings.applyTo(session);
    this.editor.setSession(session);
    if (!this.isStored(outgoing))
      outgoing.destroy();
  };

  Sessions.prototype.applyMode = function (session, name) {
    var previous = session.lwModeName;
    session.lwModeName = name;
    return global.AceModules.load('mode', name).then(function (id) {
      if (!session.destroyed && session.lwModeName === name)
        session.setMode(id);
    }, function (err) {
      global.Bridge.log("Mode '" + name + "' not applied: " + err.message);
      if (session.lwModeName === name)
        session.lwModeName = previous;
    });
  };

  // state: { content, mode, readOnly, tag }, content being the text or a
  // reference { url } to fetch it from. Anything else is logged and ignored,
  // leaving the editor as it was.
  Sessions.prototype.setState = function (state) {
    if (state === null || typeof state !== 'object' || Array.isArray(state)) {
      global.Bridge.log('lw.setState: ignored a state that is not an object: ' + String(state).slice(0, 80));
      return false;
    }
    var mode = typeof state.mode === 'string' && state.mode !== '' ? state.mode : 'text';
    var session = this.taggedSession(state.tag) || this.sessionFor(state);
    this.attach(session);
    this.editor.setReadOnly(state.readOnly === true || this.tagOf(session) === UNAVAILABLE);
    if (session.lwModeName !== mode)
      this.applyMode(session, mode);
    return true;
  };

  Sessions.prototype.sessionFor = function (state) {
    var content = global.TextSource.read(state.content);
    var tag = typeof state.tag === 'string' && state.tag !== '' ? state.tag : null;
    if (content === null)
      return this.prepare(global.ace.createEditSession(''), '', 'text', UNAVAILABLE);
    return this.prepare(global.ace.createEditSession(content), content, 'text', tag);
  };

  // knownTag: the tag of the text the caller holds; the content is left out
  // while it names the session's text. A session whose text could not be
  // had never reports one.
  Sessions.prototype.getState = function (knownTag) {
    var session = this.editor.session;
    var state = { tag: this.tagOf(session), mode: session.lwModeName };
    if (state.tag !== knownTag && state.tag !== UNAVAILABLE)
      state.content = this.contentOf(session);
    return JSON.stringify(state);
  };

  Sessions.prototype.saveLocal = function (token) {
    this.store.delete(token);
    this.store.set(token, this.editor.session);
    while (this.store.size > STORE_LIMIT) {
      var oldest = this.store.keys().next().value;
      var evicted = this.store.get(oldest);
      this.store.delete(oldest);
      global.Bridge.log('Editor state of ' + oldest + ' dropped (more than ' + STORE_LIMIT + ' documents kept)');
      if (evicted !== this.editor.session && !this.isStored(evicted))
        evicted.destroy();
    }
  };

  // Swaps the session just filled by setState() for the document's kept one.
  // When the document's text changed elsewhere meanwhile, the kept session
  // takes the new text as one undoable change, and the new text's tag.
  Sessions.prototype.loadLocal = function (token) {
    var kept = this.store.get(token);
    var incoming = this.editor.session;
    if (!kept || kept === incoming || this.tagOf(incoming) === UNAVAILABLE)
      return false;
    var content = this.contentOf(incoming);
    if (this.contentOf(kept) !== content) {
      kept.doc.setValue(content);
      kept.lwSnapshot = { revision: kept.lwRevision, content: content };
    }
    kept.lwTag = { name: this.tagOf(incoming), revision: kept.lwRevision };
    if (kept.lwModeName !== incoming.lwModeName)
      this.applyMode(kept, incoming.lwModeName);
    this.store.delete(token);
    this.store.set(token, kept);
    this.attach(kept);
    return true;
  };

  Sessions.prototype.setMode = function (name) {
    return this.applyMode(this.editor.session, name);
  };

  Sessions.prototype.getMode = function () {
    return this.editor.session.lwModeName;
  };

  global.Sessions = Sessions;
})(window);
