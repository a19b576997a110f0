#!/usr/bin/env bash
# Times cFichaDB against sqlite3 and libpq running the same one-row keyset queries (10,000
# MoveNext and 1,000 SeekID on tables of 10,000 and 1,000,000 rows with 100 distinct order
# values) and prints per-move costs and ratios. Starts its own PostgreSQL cluster on 127.0.0.1.
# Usage: bench/run_cursor.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$root/bench/run-with-postgres.sh" "$build" cursor_bench "${ZLX_BENCH_PG_PORT:-55471}" "$out/cursor.json"
uptime

/usr/bin/python3 - "$out/cursor.json" <<'PY'
import json, sys
runs = json.load(open(sys.argv[1]))["benchmarks"]
times = {b["name"].split("/iterations")[0]: b["real_time"] for b in runs}
# CPU time of the benchmark's thread: steadier than wall time on a busy machine (on PostgreSQL
# it leaves out the server's own work).
cpu = {b["name"].split("/iterations")[0]: b["cpu_time"] for b in runs}
print(f"{'work':<10}{'engine':<12}{'rows':>9}{'cFichaDB ms':>13}{'bare ms':>9}{'ratio':>7}{'large/small':>13}{'CPU ratio':>11}")
for work in ["MoveNext", "SeekID"]:
    for engine in ["SQLite", "PostgreSQL"]:
        small = times[f"BM_Library_{work}_{engine}/10000"]
        for rows in [10000, 1000000]:
            lib = times[f"BM_Library_{work}_{engine}/{rows}"]
            bare = times[f"BM_Bare_{work}_{engine}/{rows}"]
            cpu_ratio = cpu[f"BM_Library_{work}_{engine}/{rows}"] / cpu[f"BM_Bare_{work}_{engine}/{rows}"]
            print(f"{work:<10}{engine:<12}{rows:>9}{lib:>13.0f}{bare:>9.0f}{lib / bare:>7.2f}{lib / small:>13.2f}{cpu_ratio:>11.2f}")
PY
