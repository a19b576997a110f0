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
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$root/bench/run-with-postgres.sh" "$build" schema_bench "${ZLX_BENCH_PG_PORT:-55472}" "$out/schema.json"

/usr/bin/python3 - "$out/schema.json" <<'PY'
import json, sys
runs = {"/".join(b["name"].split("/")[:2]): b for b in json.load(open(sys.argv[1]))["benchmarks"]}
print(f"{'engine':<12}{'cBaseDatos ms':>15}{'ALTER ms':>10}{'ratio':>8}{'reader max ms':>16}")
for engine in ["SQLite", "PostgreSQL"]:
    lib, own = runs[f"AddColumn/Library_{engine}"], runs[f"AddColumn/Engine_{engine}"]
    print(f"{engine:<12}{lib['real_time']:>15.0f}{own['real_time']:>10.0f}"
          f"{lib['real_time'] / own['real_time']:>8.2f}{lib['reader_max_ms']:>16.0f}")
PY
