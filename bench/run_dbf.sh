#!/bin/bash
# Runs the DBF benchmark next to its peers (shapelib's DBF API, a bare byte loop) on the same
# 1,000,000-record file and prints the ratios. Needs libshp-dev and libbenchmark-dev.
# Usage: bench/run_dbf.sh BUILD_DIR   (BUILD_DIR configured with -DZLX_BUILD_BENCH=ON)
set -euo pipefail
build=${1:?usage: run_dbf.sh BUILD_DIR}
here=$(cd "$(dirname "$0")" && pwd)
export ZLX_DBF_BENCH_FILE=${ZLX_DBF_BENCH_FILE:-/tmp/zlx-dbf-bench-1m.dbf}

ninja -C "$build" -j1 dbf_bench >/dev/null
peer=$build/bench/dbf_peers
cc -O2 -o "$peer" "$here/peers/dbf_peers.c" -lshp

"$build/bench/dbf_bench" --benchmark_format=csv 2>/dev/null >"$build/bench/dbf_bench.csv"
ours_read=$(awk -F, '/BM_ReadEveryField/ {print $3}' "$build/bench/dbf_bench.csv")
ours_write=$(awk -F, '/BM_Write100k/ {print $3}' "$build/bench/dbf_bench.csv")
"$peer" "$ZLX_DBF_BENCH_FILE" >"$build/bench/dbf_peers.txt" 2>/dev/null
value() { awk -v k="$1" '$1 == k {print $2}' "$build/bench/dbf_peers.txt"; }

printf '%-34s %10s %8s\n' "case" "ms" "ratio"
ratio() { awk -v a="$1" -v b="$2" 'BEGIN {printf "%.2f", a / b}'; }
printf '%-34s %10.1f %8s\n' "cDBF read 1M records, all fields" "$ours_read" "1.00"
printf '%-34s %10.1f %8s\n' "shapelib read" "$(value shapelib_read)" "$(ratio "$(value shapelib_read)" "$ours_read")"
printf '%-34s %10.1f %8s\n' "bare C byte loop (mmap)" "$(value bare_read)" "$(ratio "$(value bare_read)" "$ours_read")"
printf '%-34s %10.1f %8s\n' "cDBF write 100k records" "$ours_write" "1.00"
printf '%-34s %10.1f %8s\n' "shapelib write" "$(value shapelib_write)" "$(ratio "$(value shapelib_write)" "$ours_write")"
echo "ratio = peer time / cDBF time (above 1: cDBF is faster)"
