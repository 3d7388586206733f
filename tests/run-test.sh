#!/usr/bin/env bash
# Runs one test or benchmark executable with a fresh home and XDG folders, headless.
set -u
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/home" "$scratch/config" "$scratch/data" "$scratch/runtime"
chmod 700 "$scratch/runtime"
export HOME="$scratch/home" XDG_CONFIG_HOME="$scratch/config" XDG_DATA_HOME="$scratch/data"
export XDG_RUNTIME_DIR="$scratch/runtime" QT_QPA_PLATFORM=offscreen
# Waiting on a page inside a page's call into the backend aborts the run.
export LARKWOOD_CHECK_PAGE_CALLS=1
unset APP_SANDBOX_CONTAINER_ID
if [ "$(id -u)" -eq 0 ]; then
  export QTWEBENGINE_DISABLE_SANDBOX=1
  export QTWEBENGINE_CHROMIUM_FLAGS="--no-sandbox --disable-gpu"
fi
"$@"
