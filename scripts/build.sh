#!/usr/bin/env bash
# Configures and builds into build/ (or $ZLX_BUILD_DIR). Extra arguments go to CMake.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZLX_BUILD_DIR:-$root/build}
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=${ZLX_BUILD_TYPE:-Debug} "$@" >/dev/null
cmake --build "$build" -j "$(nproc)"
