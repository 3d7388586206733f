#!/usr/bin/env bash
# Usage: assemble-resources.sh SOURCE_DIR DEST_DIR
# Copies Data/, User/ and Resources/* into DEST_DIR and places the npm editor
# components. Only files newer than their copies are written, so a rebuild
# with nothing changed is quick.
set -euo pipefail
src=$1
dest=$2
modules=$src/node_modules

if [ ! -d "$modules/ace-builds" ]; then
  echo "assemble-resources: $modules is missing; run scripts/bootstrap.sh first" >&2
  exit 1
fi

mkdir -p "$dest/Data" "$dest/User"
cp -ru "$src/Data/." "$dest/Data/"
[ -d "$src/User" ] && cp -ru "$src/User/." "$dest/User/"
[ -d "$src/Resources" ] && cp -ru "$src/Resources/." "$dest/"

# The editor component and the page libraries.
html=$dest/Data/Html
mkdir -p "$html/ace" "$html/lib"
cp -ru "$modules/ace-builds/src-noconflict/." "$html/ace/"
cp -u "$modules/jquery/dist/jquery.min.js" "$html/lib/"
cp -u "$modules/jquery.terminal/js/jquery.terminal.min.js" "$html/lib/"
cp -u "$modules/jquery.terminal/css/jquery.terminal.min.css" "$html/lib/"
cp -u "$modules/coffeescript/lib/coffeescript-browser-compiler-legacy/coffeescript.js" "$html/lib/"

# The LESS compiler with the packages it loads, run by the system node. The
# page libraries above are left out; everything else in node_modules is small.
node_lib=$dest/Data/Bin/node/lib/node_modules
mkdir -p "$node_lib"
for package in "$modules"/*; do
  case "$(basename "$package")" in
    ace-builds|jquery|jquery.terminal|coffeescript) continue ;;
  esac
  cp -ru "$package" "$node_lib/"
done

if [ -x "$src/scripts/generate-bundles.sh" ]; then
  "$src/scripts/generate-bundles.sh" "$src" "$dest"
fi
