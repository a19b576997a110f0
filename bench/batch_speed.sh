#!/usr/bin/env bash
# How long `zolmar batch` takes to answer 10,000 calls (a mix of every function it offers).
# Usage: bench/batch_speed.sh [path/to/zolmar]   (default: build/apps/zolmar/zolmar)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
zolmar=${1:-$root/build/apps/zolmar/zolmar}
[ -x "$zolmar" ] || { echo "no zolmar program at $zolmar (build it first)" >&2; exit 1; }

input=$(mktemp --suffix=.jsonl)
trap 'rm -f "$input"' EXIT
for ((i = 0; i < 2500; i++)); do
    printf '{"fn": "Num2Text", "args": [%d.%02d]}\n' $((i * 397)) $((i % 100))
    printf '{"fn": "Long2Text", "args": [%d]}\n' $((i * 858993))
    printf '{"fn": "ValidarNombre", "args": ["Cliente %d", true, true, true, true]}\n' "$i"
    printf '{"fn": "String2ID", "args": ["-%d"]}\n' "$i"
done >"$input"

lines=$("$zolmar" batch <"$input" | wc -l)
[ "$lines" -eq 10000 ] || { echo "expected 10000 answers, got $lines" >&2; exit 1; }

if command -v hyperfine >/dev/null; then
    hyperfine --warmup 2 --input "$input" --output null "$zolmar batch"
else
    time "$zolmar" batch <"$input" >/dev/null
fi
