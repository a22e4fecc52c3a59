#!/usr/bin/env bash
# Builds the Debian package singbox_<version>_amd64.deb into ./dist.
# Install it with: sudo apt install ./dist/singbox_<version>_amd64.deb
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
scripts/build.sh
mkdir -p dist
cpack --config build/CPackConfig.cmake -G DEB -B dist
rm -rf dist/_CPack_Packages
ls -l dist/*.deb
