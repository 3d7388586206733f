#!/usr/bin/env bash
# Installs what the build, the tests and the editor need on Debian 12, then the
# npm editor components from the committed lock file. Idempotent and quiet when
# nothing is missing.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(
  cmake make g++ pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-webengine-dev qt6-webengine-dev-tools
  qt6-webchannel-dev qt6-svg-dev libqt6svg6 libgl-dev libxkbcommon-dev
  qt6-qpa-plugins libqt6printsupport6
  xvfb xauth libcurl4-openssl-dev
  php-cli php-curl python3-pyftpdlib python3-openssl openssh-server openssh-client openssl
  clang libclang-rt-14-dev nodejs
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
# Node.js may come from outside Debian's packages; a working node is enough.
if command -v node >/dev/null 2>&1; then
  missing=("${missing[@]/nodejs}")
fi
missing=($(printf '%s\n' "${missing[@]}" | grep -v '^$' || true))

if [ ${#missing[@]} -gt 0 ]; then
  echo "bootstrap: installing ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

# npm dependencies: reinstall only when the lock file changed since the last install.
stamp=node_modules/.lock-installed
if [ ! -f "$stamp" ] || ! cmp -s package-lock.json "$stamp"; then
  echo "bootstrap: npm ci"
  npm ci --no-audit --no-fund --loglevel=error >/dev/null
  cp package-lock.json "$stamp"
fi
