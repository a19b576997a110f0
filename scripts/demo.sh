#!/usr/bin/env bash
# Builds the library and runs zolmar-demo, the client-management demonstration, on the
# embedded SQLite default (data in ~/.local/share/zolmar-demo, or $ZLX_DEMO_DATA). With a
# display it opens the client form; without one it runs a scripted editing session offscreen
# and prints the folder that holds its screenshots. Extra arguments go to zolmar-demo
# (for example --server postgres:<conninfo>).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export ZLX_BUILD_DIR=${ZLX_BUILD_DIR:-$root/build-demo}
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh" -DZLX_BUILD_TESTS=OFF
data=${ZLX_DEMO_DATA:-${XDG_DATA_HOME:-$HOME/.local/share}/zolmar-demo}
"$ZLX_BUILD_DIR/apps/zolmar-demo/zolmar-demo" --data "$data" "$@"
