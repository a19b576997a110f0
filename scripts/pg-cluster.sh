#!/usr/bin/env bash
# start DIR PORT | stop DIR: a throwaway PostgreSQL cluster on 127.0.0.1 for the tests.
# The server refuses to run as root, so it runs as the postgres user.
set -euo pipefail
action=$1 dir=$2 port=${3:-55432}
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
as_pg() { if [ "$(id -u)" = 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi; }
case $action in
start)
    rm -rf "$dir"; mkdir -p "$dir"
    [ "$(id -u)" = 0 ] && chown postgres "$dir"
    as_pg "$bin/initdb" -D "$dir/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >"$dir/initdb.log"
    as_pg "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w \
        -o "-h 127.0.0.1 -p $port -k $dir -c fsync=off -c max_connections=200" start >/dev/null
    as_pg "$bin/createdb" -h 127.0.0.1 -p "$port" -U postgres zlxtest
    ;;
stop)
    [ -d "$dir/data" ] && as_pg "$bin/pg_ctl" -D "$dir/data" -m immediate stop >/dev/null || true
    rm -rf "$dir"
    ;;
esac
