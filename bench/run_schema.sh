#!/usr/bin/env bash
# Times a column added to a table of a million rows by cBaseDatos.Create_Column (add, bound
# default, fill in statements of 50,000 identities) against the engine's own single ALTER
# TABLE ... ADD ... NOT NULL DEFAULT, on the embedded server and on PostgreSQL, and prints the
# ratios and the longest wait of a reader on another connection meanwhile. Starts its own
# PostgreSQL cluster on 127.0.0.1.
# Usage: bench/run_schema.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZLX_BUILD_BENCH=ON \
    -DZLX_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" schema_bench >/dev/null

out=$(mktemp -d)
pgdir=$(mktemp -d)
port=${ZLX_BENCH_PG_PORT:-55471}
trap '"$root/scripts/pg-cluster.sh" stop "$pgdir"; rm -rf "$out"' EXIT
"$root/scripts/pg-cluster.sh" start "$pgdir" "$port" >/dev/null
ZLX_BENCH_PG="host=127.0.0.1 port=$port user=postgres dbname=zlxtest" \
    "$build/bench/schema_bench" --benchmark_format=json >"$out/schema.json"

/usr/bin/python3 - "$out/schema.json" <<'PY'
import json, sys
runs = {b["name"].split("/")[0]: b for b in json.load(open(sys.argv[1]))["benchmarks"]}
print(f"{'engine':<12}{'cBaseDatos ms':>15}{'ALTER ms':>10}{'ratio':>8}{'reader max ms':>16}")
for engine in ["SQLite", "PostgreSQL"]:
    lib, own = runs[f"AddColumn/Library_{engine}"], runs[f"AddColumn/Engine_{engine}"]
    print(f"{engine:<12}{lib['real_time']:>15.0f}{own['real_time']:>10.0f}"
          f"{lib['real_time'] / own['real_time']:>8.2f}{lib['reader_max_ms']:>16.0f}")
PY
