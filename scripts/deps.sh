#!/usr/bin/env bash
# Installs the Debian packages the build, the program, the package and the tests need, when missing.
set -euo pipefail
pkgs=(
  build-essential cmake ninja-build ccache pkg-config git
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libqt6sql6-psql libqt6svg6-dev qt6-charts-dev libqt6opengl6-dev
  libgl-dev libsodium-dev libsqlite3-dev libicu-dev libxlsxwriter-dev libbenchmark-dev
  libminizip-dev libfreexl-dev
  postgresql fonts-noto-cjk xvfb xauth xdg-utils poppler-utils
  dpkg-dev file desktop-file-utils appstream
)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
