#!/usr/bin/env bash
# Configures (once) and builds into ./build.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ ! -f build/build.ninja ]; then
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
jobs=$(nproc 2>/dev/null || echo 2)
cmake --build build -j "$jobs"
