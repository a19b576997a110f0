#!/usr/bin/env bash
# Builds everything and runs every test: on the embedded SQLite default and on a PostgreSQL
# cluster that this script starts on 127.0.0.1 and removes afterwards.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
build=${ZLX_BUILD_DIR:-$root/build}
pgdir=$(mktemp -d /tmp/zlx-pg.XXXXXX)
# The first free port from 55432 on, unless ZLX_PG_PORT names one.
port=${ZLX_PG_PORT:-}
if [ -z "$port" ]; then
    for candidate in $(seq 55432 55482); do
        if ! (exec 3<>"/dev/tcp/127.0.0.1/$candidate") 2>/dev/null; then port=$candidate; break; fi
    done
fi
trap '"$root/scripts/pg-cluster.sh" stop "$pgdir"' EXIT
"$root/scripts/pg-cluster.sh" start "$pgdir" "$port"
export ZLX_REQUIRE_PG=1
export ZLX_TEST_PG="host=127.0.0.1 port=$port user=postgres dbname=zlxtest"
export ZLX_TEST_ODBC_PG="Driver=/usr/lib/x86_64-linux-gnu/odbc/psqlodbcw.so;Server=127.0.0.1;Port=$port;Database=zlxtest;Uid=postgres;Pwd="
cd "$build"
ctest --output-on-failure -j "$(nproc)"
