#!/usr/bin/env bash
# Builds the library and runs `zolmar demo`, a short end-to-end run on the embedded SQLite
# default.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export ZLX_BUILD_DIR=${ZLX_BUILD_DIR:-$root/build-demo}
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh" -DZLX_BUILD_TESTS=OFF
"$ZLX_BUILD_DIR/apps/zolmar/zolmar" demo
