#!/usr/bin/env bash
# Times cValidCombo.Run on a 100,000-row list (to the list request, and to the first painted
# rows of the lookup window offscreen) against the same query fetched through sqlite3 and
# libpq, and prints the times and ratios. Starts its own PostgreSQL cluster on 127.0.0.1.
# Usage: bench/run_validcombo.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$root/bench/run-with-postgres.sh" "$build" validcombo_bench "${ZLX_BENCH_PG_PORT:-55472}" "$out/combo.json"

/usr/bin/python3 - "$out/combo.json" <<'PY'
import json, sys
times = {b["name"].split("/iterations")[0]: b["real_time"] for b in json.load(open(sys.argv[1]))["benchmarks"]}
print(f"{'engine':<12}{'bare fetch ms':>14}{'to list ms':>12}{'to paint ms':>13}{'list/bare':>11}{'paint/bare':>12}")
for engine in ["SQLite", "PostgreSQL"]:
    bare = times[f"BM_Bare_Fetch_{engine}"]
    listed = times[f"BM_Combo_List_{engine}"]
    painted = times[f"BM_Combo_FirstPaint_{engine}"]
    print(f"{engine:<12}{bare:>14.0f}{listed:>12.0f}{painted:>13.0f}{listed / bare:>11.2f}{painted / bare:>12.2f}")
PY
