#!/usr/bin/env bash
# Usage: generate-bundles.sh SOURCE_DIR DEST_DIR
# Turns the editor component's modes, snippets, workers and themes into
# language specification and theme bundles inside the assembled tree.
set -euo pipefail
exec node "$1/scripts/generate-bundles.js" "$1/node_modules/ace-builds/src-noconflict" "$2" "$1/scripts/bundles"
