#!/usr/bin/env bash
# Times cConexion against sqlite3 and libpq doing the same work (Insert of a 100,000-row
# matrix, 10,000 single-row Execute calls in mode 2) and prints the library's overhead as
# ratios (library time / bare time), with the goal of each and the peak resident memory of
# the library's process and of the bare one (each side runs in a process of its own).
# Starts its own PostgreSQL cluster on 127.0.0.1. ZLX_CONEXION_CASES, a regular expression over
# the case names (Insert_SQLite, Insert_PostgreSQL, Lookups_SQLite, KeyedLookups_SQLite,
# Lookups_PostgreSQL), runs only those: the SQLite Insert takes minutes on a busy disk.
# Usage: bench/run_conexion.sh [build folder]   (default: build-bench, configured Release)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build-bench}
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
# Each case runs ZLX_BENCH_REPEATS times (default 3) and its median is taken: one run of a
# case differs from the next by up to a third on a small shared machine.
for side in Library Bare; do
    "$root/bench/run-with-postgres.sh" "$build" conexion_bench "${ZLX_BENCH_PG_PORT:-55470}" \
        "$out/$side.json" --benchmark_filter="BM_${side}_(${ZLX_CONEXION_CASES:-.*})" \
        --benchmark_repetitions="${ZLX_BENCH_REPEATS:-3}" --benchmark_report_aggregates_only=true
done
uptime

/usr/bin/python3 - "$out" <<'PY'
import json, sys
folder = sys.argv[1]
times, cpu, peak = {}, {}, {}
for side in ["Library", "Bare"]:
    for b in json.load(open(f"{folder}/{side}.json"))["benchmarks"]:
        if b.get("aggregate_name", "median") != "median":
            continue
        times[b["name"].split("/")[0]] = b["real_time"]
        cpu[b["name"].split("/")[0]] = b["cpu_time"]
    peak[side] = int(open(f"{folder}/{side}.json.rss").read().split()[-1]) / 1024
goals = {("Insert", "PostgreSQL"): 1.5, ("Lookups", "SQLite"): 1.3}
print(f"{'work':<10}{'engine':<12}{'cConexion ms':>14}{'bare ms':>10}{'ratio':>8}{'goal':>7}{'CPU ratio':>11}")
for work in ["Insert", "Lookups"]:
    for engine in ["SQLite", "PostgreSQL"]:
        if f"BM_Library_{work}_{engine}" not in times:
            continue
        lib, bare = times[f"BM_Library_{work}_{engine}"], times[f"BM_Bare_{work}_{engine}"]
        cpu_ratio = cpu[f"BM_Library_{work}_{engine}"] / cpu[f"BM_Bare_{work}_{engine}"]
        goal = goals.get((work, engine))
        goal = f"{goal:.1f}" if goal else "-"
        print(f"{work:<10}{engine:<12}{lib:>14.0f}{bare:>10.0f}{lib / bare:>8.2f}{goal:>7}{cpu_ratio:>11.2f}")
if "BM_Library_Lookups_SQLite" in times and "BM_Bare_LookupsToEnd_SQLite" in times:
    lib, bare = times["BM_Library_Lookups_SQLite"], times["BM_Bare_LookupsToEnd_SQLite"]
    cpu_ratio = cpu["BM_Library_Lookups_SQLite"] / cpu["BM_Bare_LookupsToEnd_SQLite"]
    print(f"{'Lookups':<10}{'SQLite':<12}{lib:>14.0f}{bare:>10.0f}{lib / bare:>8.2f}{'1.3':>7}{cpu_ratio:>11.2f}"
          "   (bare statements stepped to their end, as the library steps them)")
if "BM_Library_KeyedLookups_SQLite" in times and "BM_Bare_KeyedLookups_SQLite" in times:
    lib, bare = times["BM_Library_KeyedLookups_SQLite"], times["BM_Bare_KeyedLookups_SQLite"]
    cpu_ratio = cpu["BM_Library_KeyedLookups_SQLite"] / cpu["BM_Bare_KeyedLookups_SQLite"]
    print(f"{'Lookups':<10}{'SQLite':<12}{lib:>14.0f}{bare:>10.0f}{lib / bare:>8.2f}{'1.3':>7}{cpu_ratio:>11.2f}"
          "   (unique index on ZolmarID, as application tables have)")
print(f"peak resident memory: cConexion {peak['Library']:.0f} MB, bare engines {peak['Bare']:.0f} MB")
PY
