#!/usr/bin/env bash
# Builds one benchmark program in Release and runs it against a PostgreSQL cluster of its own
# on 127.0.0.1 (ZLX_BENCH_PG names it), writing Google Benchmark's JSON to a file. Shared by
# the run_*.sh scripts that compare the library with the bare engines.
# The process's peak resident memory (KB) goes to <json file>.rss; further arguments go to the
# program (a --benchmark_filter, say).
# Usage: bench/run-with-postgres.sh <build folder> <program> <port> <json file> [argument...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$1 program=$2 port=$3 json=$4
shift 4
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZLX_BUILD_BENCH=ON \
    -DZLX_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j2 "$program" >/dev/null

pgdir=$(mktemp -d)
trap '"$root/scripts/pg-cluster.sh" stop "$pgdir"' EXIT
"$root/scripts/pg-cluster.sh" start "$pgdir" "$port" >/dev/null
ZLX_BENCH_PG="host=127.0.0.1 port=$port user=postgres dbname=zlxtest" \
    /usr/bin/time -f %M -o "$json.rss" "$build/bench/$program" --benchmark_format=json "$@" >"$json"
