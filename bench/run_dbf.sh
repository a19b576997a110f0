#!/usr/bin/env bash
# Runs the DBF benchmarks next to their peers on the same 1,000,000-record file and prints
# the ratios:
#  - cDBF reading every field of every record and writing 100,000 records, against shapelib's
#    DBF API, a bare C byte loop and the `dbffile` reader from the npm registry (installed into
#    a temporary folder for the run; skipped when the registry cannot be reached);
#  - cDatos (LoadFile_DBF, Filter, two Sorts, Sum) against pandas and SQLite's in-memory database,
#    with the peak resident memory of each process (/usr/bin/time -v).
# Needs libbenchmark-dev, libshp-dev, libsqlite3-dev, python3-pandas, node and npm.
# Usage: bench/run_dbf.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
export ZLX_DBF_BENCH_FILE=${ZLX_DBF_BENCH_FILE:-/tmp/zlx-dbf-bench-1m.dbf}

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZLX_BUILD_BENCH=ON \
    -DZLX_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j1 dbf_bench table_bench >/dev/null

out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
cc -O2 -o "$out/dbf_peers" "$root/bench/peers/dbf_peers.c" -lshp
cc -O2 -o "$out/table_sqlite" "$root/bench/peers/table_sqlite.c" -lsqlite3

# DBF reading and writing (dbf_bench writes the shared file the first time).
# Each library case is timed ZLX_BENCH_REPEATS times (default 5) and its median taken, as is
# the bare loop, the floor of the ratio the read is held to: single runs on a small shared
# machine differ by a third.
repeats=(--benchmark_repetitions="${ZLX_BENCH_REPEATS:-5}" --benchmark_report_aggregates_only=true)
"$build/bench/dbf_bench" --benchmark_format=json "${repeats[@]}" 2>/dev/null >"$out/dbf.json"
"$out/dbf_peers" "$ZLX_DBF_BENCH_FILE" >"$out/dbf_peers.txt" 2>/dev/null
if command -v node >/dev/null && command -v npm >/dev/null &&
    timeout 180 npm install --prefix "$out/npm" --no-save --no-audit --no-fund \
        --no-package-lock --fetch-retries=1 dbffile@1.13.0 >"$out/npm.log" 2>&1; then
    NODE_PATH="$out/npm/node_modules" node "$root/bench/peers/dbf_dbffile.js" \
        "$ZLX_DBF_BENCH_FILE" >>"$out/dbf_peers.txt" 2>/dev/null
else
    echo "npm registry unreachable or node/npm missing: the dbffile peer is skipped" >&2
fi

# cDatos against pandas and SQLite, each process under /usr/bin/time -v for its peak memory.
timed() {
    local name=$1
    shift
    /usr/bin/time -v -o "$out/$name.time" "$@" >"$out/$name.out"
}
timed table "$build/bench/table_bench" --benchmark_format=json "${repeats[@]}"
timed pandas /usr/bin/python3 "$root/bench/peers/table_peers.py" "$ZLX_DBF_BENCH_FILE"
timed sqlite "$out/table_sqlite" "$ZLX_DBF_BENCH_FILE"

/usr/bin/python3 - "$out" <<'PY'
import json, os, re, sys
folder = sys.argv[1]

def gbench(path):
    scale = {"ms": 1.0, "us": 1e-3, "ns": 1e-6}
    data = json.load(open(path))
    # The median of the repetitions when they were asked for, else the single run.
    return {b["name"].split("/")[0].removeprefix("BM_"): b for b in data["benchmarks"]
            if b.get("aggregate_name", "median") == "median"}, scale

def ms(bench, scale, kind="real_time"):
    return bench[kind] * scale[bench["time_unit"]]

def pairs(path):
    values = {}
    for line in open(path):
        parts = line.split()
        if len(parts) == 2:
            values[parts[0]] = float(parts[1])
    return values

def peak_mb(name):
    text = open(f"{folder}/{name}.time").read()
    return int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", text).group(1)) / 1024

def ratio(peer, ours):
    return f"{peer / ours:.2f}" if peer is not None else "-"

dbf, scale = gbench(f"{folder}/dbf.json")
peers = pairs(f"{folder}/dbf_peers.txt")
read, write = ms(dbf["ReadEveryField"], scale), ms(dbf["Write100k"], scale)
print("DBF file, 1,000,000 records (ms; ratio = peer time / cDBF time, above 1: cDBF faster)")
print(f"{'case':<38}{'ms':>10}{'ratio':>8}")
rows = [("cDBF read, every field", read, read),
        ("shapelib read", peers.get("shapelib_read"), read),
        ("dbffile (npm) read", peers.get("dbffile_read"), read),
        ("bare C byte loop (mmap)", peers.get("bare_read"), read),
        ("cDBF write 100k records", write, write),
        ("shapelib write", peers.get("shapelib_write"), write)]
for label, value, ours in rows:
    shown = f"{value:10.1f}" if value is not None else f"{'skipped':>10}"
    print(f"{label:<38}{shown}{ratio(value, ours):>8}")

table, scale = gbench(f"{folder}/table.out")
pandas = json.load(open(f"{folder}/pandas.out"))
sqlite = pairs(f"{folder}/sqlite.out")
print()
print("cDatos on the same file (ms; ratio = peer time / cDatos time, above 1: cDatos faster)")
print(f"{'operation':<14}{'cDatos':>10}{'SQLite':>10}{'pandas':>10}{'SQLite/cD':>11}"
      f"{'pandas/cD':>11}")
for key, peer_key in [("LoadFile_DBF", "load"), ("Filter", "filter"), ("Sort", "sort"),
                      ("SortNumbers", "sort_numbers"), ("Sum", "sum")]:
    ours = ms(table[key], scale)
    lite, panda = sqlite[peer_key], pandas[peer_key]
    print(f"{key:<14}{ours:>10.1f}{lite:>10.1f}{panda:>10.1f}{lite / ours:>11.2f}"
          f"{panda / ours:>11.2f}")
bare, bare_cpu = peers.get("bare_read"), peers.get("bare_read_cpu")
load = ms(table["LoadFile_DBF"], scale)
read_cpu = ms(dbf["ReadEveryField"], scale, "cpu_time")
load_cpu = ms(table["LoadFile_DBF"], scale, "cpu_time")
if bare is not None:
    print(f"cDBF read / bare C byte loop: {read / bare:.2f} (aim: at most 2); "
          f"in CPU time {read_cpu / bare_cpu:.2f}")
print(f"LoadFile_DBF / cDBF read: {load / read:.2f} (aim: at most 1.5); "
      f"in CPU time {load_cpu / read_cpu:.2f}")
print(f"rows found by the filter: cDatos {table['Filter']['rows']:.0f}, "
      f"SQLite {sqlite['filter_rows']:.0f}, pandas {pandas['filter_rows']}")
print(f"PRICE total: cDatos {table['Sum']['total']:.2f}, SQLite {sqlite['total']:.2f}, "
      f"pandas {pandas['total']:.2f}")
print(f"peak resident memory MB: cDatos {peak_mb('table'):.0f}, SQLite {peak_mb('sqlite'):.0f}, "
      f"pandas {peak_mb('pandas'):.0f}")
print("load average (1, 5, 15 min) at the end: %.1f %.1f %.1f" % os.getloadavg())
PY
