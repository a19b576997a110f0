#!/usr/bin/env bash
# Times cConexion against sqlite3 and libpq doing the same work (Insert of a 100,000-row
# matrix, 10,000 single-row Execute calls in mode 2) and prints the library's overhead as
# ratios (library time / bare time). Starts its own PostgreSQL cluster on 127.0.0.1.
# Usage: bench/run_conexion.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$root/bench/run-with-postgres.sh" "$build" conexion_bench "${ZLX_BENCH_PG_PORT:-55470}" "$out/conexion.json"

/usr/bin/python3 - "$out/conexion.json" <<'PY'
import json, sys
times = {b["name"].split("/")[0]: b["real_time"] for b in json.load(open(sys.argv[1]))["benchmarks"]}
print(f"{'work':<22}{'engine':<12}{'cConexion ms':>14}{'bare ms':>10}{'ratio':>8}")
for work in ["Insert", "Lookups"]:
    for engine in ["SQLite", "PostgreSQL"]:
        lib, bare = times[f"BM_Library_{work}_{engine}"], times[f"BM_Bare_{work}_{engine}"]
        print(f"{work:<22}{engine:<12}{lib:>14.0f}{bare:>10.0f}{lib / bare:>8.2f}")
PY
