#!/usr/bin/env bash
# Times one SELECT with a filter and a sort over the 1,000,000-record DBF benchmark file
# (50,000 rows come back) three ways and prints the ratios:
#  - through the FoxPro folder provider (SQLite virtual tables over the file, no copy);
#  - GDAL's ogrinfo -sql on the same file (its own SQL engine; the rows written to a file);
#  - SQLite after loading the file into an in-memory table (load and query timed apart).
# Needs libbenchmark-dev, libsqlite3-dev and gdal-bin.
# Usage: bench/run_fox.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
export ZLX_DBF_BENCH_FILE=${ZLX_DBF_BENCH_FILE:-/tmp/zlx-dbf-bench-1m.dbf}

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZLX_BUILD_BENCH=ON \
    -DZLX_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j1 fox_bench >/dev/null

out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$build/bench/fox_bench" --benchmark_format=json 2>/dev/null >"$out/fox.json"

layer=$(basename "$ZLX_DBF_BENCH_FILE" .dbf)
ogr_ms() {
    local start end
    start=$(date +%s%N)
    ogrinfo -q -ro "$ZLX_DBF_BENCH_FILE" -sql "SELECT NAME, PRICE FROM \"$layer\" \
WHERE QTY < 100 AND ACTIVE = 'T' ORDER BY PRICE DESC, NAME" >"$out/ogr.txt"
    end=$(date +%s%N)
    echo $(((end - start) / 1000000))
}
ogr_best=$(for _ in 1 2 3; do ogr_ms; done | sort -n | head -1)
ogr_rows=$(grep -c '^OGRFeature' "$out/ogr.txt")
[ "$ogr_rows" = 50000 ] || { echo "ogrinfo returned $ogr_rows rows, not 50000" >&2; exit 1; }

/usr/bin/python3 - "$out/fox.json" "$ogr_best" <<'PY'
import json, sys
scale = {"ms": 1.0, "us": 1e-3, "ns": 1e-6}
times = {b["name"].split("/")[0].removeprefix("BM_"): b["real_time"] * scale[b["time_unit"]]
         for b in json.load(open(sys.argv[1]))["benchmarks"]}
ours = times["Provider_FilterSort"]
ogr = float(sys.argv[2])
load, query = times["SqliteLoaded_Load"], times["SqliteLoaded_FilterSort"]
print("SELECT with a filter and a sort, 1,000,000-record DBF, 50,000 rows back")
print("(ms; ratio = peer time / provider time, above 1: the provider is faster)")
print(f"{'case':<44}{'ms':>10}{'ratio':>8}")
for label, value in [("FoxPro folder provider", ours),
                     ("ogrinfo -sql (GDAL)", ogr),
                     ("SQLite: load into memory, then query", load + query),
                     ("SQLite: the query alone, once loaded", query)]:
    print(f"{label:<44}{value:10.0f}{value / ours:8.2f}")
PY
