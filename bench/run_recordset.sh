#!/usr/bin/env bash
# Runs the Recordset benchmark, the same work on SQLite :memory: and on pandas, and prints
# the time ratios (peer / recordset: above 1 means the recordset is faster) and peak memory.
# Usage: bench/run_recordset.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZLX_BUILD_BENCH=ON \
    -DZLX_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j1 recordset_bench sqlite_peer_bench >/dev/null

out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
"$build/bench/recordset_bench" --benchmark_format=json >"$out/recordset.json"
"$build/bench/sqlite_peer_bench" --benchmark_format=json >"$out/sqlite.json"
/usr/bin/python3 "$root/bench/peers/recordset_peers.py" >"$out/pandas.json"

/usr/bin/python3 - "$out" <<'PY'
import json, os, sys
folder = sys.argv[1]

def gbench(name):
    data = json.load(open(f"{folder}/{name}.json"))
    scale = {"ms": 1.0, "us": 1e-3, "ns": 1e-6}
    times, peak = {}, None
    for b in data["benchmarks"]:
        key = b["name"].split("/")[0].removeprefix("BM_")
        times[key] = b["real_time"] * scale[b["time_unit"]]
        peak = b.get("peak_rss_mb", peak)
    return times, peak

ours, our_peak = gbench("recordset")
lite, lite_peak = gbench("sqlite")
pandas = json.load(open(f"{folder}/pandas.json"))
panda = {"Load": pandas["load"], "Filter": pandas["filter"], "Sort": pandas["sort"],
         "FindOptimized": pandas["find_us"] / 1000.0}
print(f"{'operation':<14}{'recordset ms':>14}{'sqlite ms':>12}{'pandas ms':>12}"
      f"{'sqlite/rs':>11}{'pandas/rs':>11}")
for key in ["Load", "Filter", "Sort", "FindOptimized"]:
    r, s, p = ours[key], lite[key], panda[key]
    print(f"{key:<14}{r:>14.3f}{s:>12.3f}{p:>12.3f}{s / r:>11.2f}{p / r:>11.2f}")
print(f"peak memory MB: recordset {our_peak:.0f}, sqlite {lite_peak:.0f}, "
      f"pandas {pandas['peak_rss_mb']:.0f}")
print("load average (1, 5, 15 min) at the end: %.1f %.1f %.1f" % os.getloadavg())
PY
