// Usage: node generate-bundles.js ACE_SOURCE_FOLDER RESOURCE_TREE BUNDLE_SOURCES
//
// Writes into RESOURCE_TREE/Data:
//  - Specs/<Caption>.lwSpec for every mode of the editor component: info.json
//    ("name" = the mode identifier, "extensions" = file extensions and whole
//    file names), mode.js, snippets.js and worker.js when the component has
//    them. Hand-written parts already in a bundle folder (templates, plugins)
//    are kept.
//  - Themes/<Title>.lwTheme for every theme of the component: info.json and
//    style.css.
//  - the run plugin (BUNDLE_SOURCES/run-plugin) inside the specifications it
//    knows how to run.
'use strict';
const fs = require('fs');
const path = require('path');
const vm = require('vm');

const [aceFolder, resourceTree, bundleSources] = process.argv.slice(2);
const specsFolder = path.join(resourceTree, 'Data', 'Specs');
const themesFolder = path.join(resourceTree, 'Data', 'Themes');

// Mode captions that read better under another title.
const captionOverrides = { Text: 'Plain Text' };
// Whole file names the component's list does not carry.
const extraFileNames = {
  makefile: ['Makefile', 'makefile', 'GNUmakefile'],
  sh: ['.bashrc', '.bash_profile', '.profile', 'PKGBUILD'],
  python: ['SConstruct', 'SConscript', 'pyw'],
  text: ['CMakeLists.txt', 'LICENSE', 'README'],
  ruby: ['Rakefile', 'Gemfile'],
  javascript: ['Jakefile'],
};
// Specifications that get the run plugin, with the program that runs a file.
const runners = { python: 'python3', javascript: 'node', sh: 'bash', lua: 'lua' };

// Runs the AMD-style modules of one editor file and answers the exports of
// the module named moduleName.
function loadModule(file, moduleName) {
  const factories = {};
  const cache = {};
  const stubs = { 'ace/lib/dom': { importCssString() {} } };
  const resolve = (from, name) => name.startsWith('.')
    ? path.posix.normalize(path.posix.join(path.posix.dirname(from), name)) : name;
  function requireModule(name) {
    if (stubs[name]) return stubs[name];
    if (cache[name]) return cache[name].exports;
    const module = { exports: {} };
    cache[name] = module;
    if (factories[name]) factories[name]((dep) => requireModule(resolve(name, dep)), module.exports, module);
    return module.exports;
  }
  const ace = {
    define(name, deps, factory) { factories[name] = factory; },
    require() {},
  };
  vm.runInNewContext(fs.readFileSync(file, 'utf8'), { ace, window: {}, module: undefined, exports: undefined });
  return requireModule(moduleName);
}

function writeJSON(file, object) {
  fs.writeFileSync(file, JSON.stringify(object, null, 2) + '\n');
}

function copyIfPresent(source, target) {
  if (fs.existsSync(source)) fs.copyFileSync(source, target);
}

function extensionsOf(mode) {
  const entries = mode.extensions.split('|').map((entry) => entry.replace(/^\^/, ''));
  return [...new Set(entries.concat(extraFileNames[mode.name] || []).filter(Boolean))];
}

function generateSpecs() {
  const { modes } = loadModule(path.join(aceFolder, 'ext-modelist.js'), 'ace/ext/modelist');
  for (const mode of modes) {
    // A caption becomes a folder name, so it may not hold a folder separator.
    const caption = (captionOverrides[mode.caption] || mode.caption).replace(/\s*\/\s*/g, ' - ');
    const bundle = path.join(specsFolder, `${caption}.lwSpec`);
    fs.mkdirSync(bundle, { recursive: true });
    writeJSON(path.join(bundle, 'info.json'), { name: mode.name, extensions: extensionsOf(mode) });
    copyIfPresent(path.join(aceFolder, `mode-${mode.name}.js`), path.join(bundle, 'mode.js'));
    copyIfPresent(path.join(aceFolder, 'snippets', `${mode.name}.js`), path.join(bundle, 'snippets.js'));
    copyIfPresent(path.join(aceFolder, `worker-${mode.name}.js`), path.join(bundle, 'worker.js'));
    if (runners[mode.name]) addRunPlugin(bundle, runners[mode.name]);
  }
  return modes.length;
}

function addRunPlugin(specBundle, program) {
  const plugins = path.join(specBundle, 'plugins');
  const plugin = path.join(plugins, 'Run.lwPlugin');
  fs.mkdirSync(plugin, { recursive: true });
  fs.copyFileSync(path.join(bundleSources, 'run-plugin', 'script.coffee'), path.join(plugin, 'script.coffee'));
  writeJSON(path.join(plugin, 'info.json'), { name: 'Run', shortcut: '@+R', program });
  writeJSON(path.join(plugins, 'index.json'), [{ title: 'Run' }]);
}

function themeTitle(identifier) {
  return identifier.split('_').map((word) => word.charAt(0).toUpperCase() + word.slice(1)).join(' ');
}

// The module template puts the style text between double quotes without
// escaping: single quotes replace double ones and backslashes are doubled.
function embeddableCSS(css) {
  return css.replace(/\\/g, '\\\\').replace(/"/g, "'");
}

function generateThemes() {
  const files = fs.readdirSync(aceFolder).filter((name) => /^theme-.*\.js$/.test(name));
  for (const file of files) {
    const identifier = file.slice('theme-'.length, -'.js'.length);
    const theme = loadModule(path.join(aceFolder, file), `ace/theme/${identifier}`);
    if (!theme.cssClass || typeof theme.cssText !== 'string') {
      console.warn(`generate-bundles: ${file} carries no style text; skipped`);
      continue;
    }
    const bundle = path.join(themesFolder, `${themeTitle(identifier)}.lwTheme`);
    fs.mkdirSync(bundle, { recursive: true });
    writeJSON(path.join(bundle, 'info.json'), { name: theme.cssClass.replace(/^ace-/, ''), dark: !!theme.isDark });
    fs.writeFileSync(path.join(bundle, 'style.css'), embeddableCSS(theme.cssText));
  }
  return files.length;
}

const specCount = generateSpecs();
const themeCount = generateThemes();
console.log(`generate-bundles: ${specCount} specifications, ${themeCount} themes`);
