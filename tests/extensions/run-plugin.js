// Usage: node run-plugin.js COFFEESCRIPT_COMPILER PLUGIN_BUNDLE INPUT_JSON
// Compiles the plugin's script.coffee with the page's CoffeeScript compiler
// and runs it against a recording stand-in of the page's plugin API. Prints
// the record as JSON: {"text", "alerts", "status", "utility", "terminal", "saved"}.
'use strict';
const fs = require('fs');
const path = require('path');
const vm = require('vm');

const [compilerPath, bundle, inputJSON] = process.argv.slice(2);
const input = JSON.parse(inputJSON);
const record = { text: input.text, alerts: [], status: [], utility: [], terminal: [], saved: false };

const plugin = {
  info: JSON.parse(fs.readFileSync(path.join(bundle, 'info.json'), 'utf8').replace(/^\s*\/\/.*$/gm, '')),
  path: bundle,
  editor: {
    text: () => record.text,
    setText: (text) => { record.text = text; },
    selection: () => input.selection || '',
    transform: (fn) => { record.text = fn(record.text); },
  },
  document: { path: () => input.path || '', save: () => { record.saved = true; } },
  utility: { show: (html, label, basePath) => record.utility.push({ html, label, basePath }) },
  terminal: { run: (argv) => record.terminal.push(argv) },
  status: (message) => record.status.push(message),
  alert: (title, text) => record.alerts.push([title, text]),
};

const compilerContext = {};
vm.createContext(compilerContext);
vm.runInContext(fs.readFileSync(compilerPath, 'utf8'), compilerContext);
const script = compilerContext.CoffeeScript.compile(fs.readFileSync(path.join(bundle, 'script.coffee'), 'utf8'));
vm.runInNewContext(script, { plugin, JSON });
process.stdout.write(JSON.stringify(record));
