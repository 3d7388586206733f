#!/usr/bin/env bash
# Usage: run.sh BUILD_DIR — starts the editor from the build tree. With no
# display it runs under xvfb-run, saves a picture of the window to
# BUILD_DIR/larkwood-screenshot.png, prints its path and quits.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
export LARKWOOD_RESOURCES="$build/share/larkwood"
if [ "$(id -u)" -eq 0 ]; then
  export QTWEBENGINE_DISABLE_SANDBOX=1
  export QTWEBENGINE_CHROMIUM_FLAGS="${QTWEBENGINE_CHROMIUM_FLAGS:---no-sandbox --disable-gpu}"
fi
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$build/bin/larkwood" "${@:2}"
fi
exec xvfb-run -a -s "-screen 0 1280x900x24" \
  "$build/bin/larkwood" --screenshot "$build/larkwood-screenshot.png" "${@:2}"
