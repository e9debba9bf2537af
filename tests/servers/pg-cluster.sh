#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The test suite's own PostgreSQL server: ./pg-cluster.sh ACTION FOLDER, where
# ACTION is start, stop, halt (stopped without a word to its clients, as by a
# power cut), serve (started again after halt) or restart (halt, then serve
# after DOWN seconds, a third argument, 0 by default).
# A throwaway cluster in FOLDER, reached only through a Unix socket there
# (no TCP), trusting its user "zolt", with the database "zolt" (citext and unaccent
# installed) and an ODBC data source "ZoltTest" in FOLDER/odbc.ini for
# unixODBC's PostgreSQL driver. Run as root, the server runs as nobody, in a
# folder of its own under /tmp that FOLDER links to (nobody may not be able
# to reach the build folder).
set -euo pipefail
action=$1
folder=$(realpath -m -s "$2")
port=55432
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u nobody -- "$@"; else "$@"; fi
}

stop() {
    local real
    real=$(readlink -f "$folder" || true)
    if [ -n "$real" ] && [ -f "$real/data/postmaster.pid" ]; then
        as_owner "$bin/pg_ctl" -D "$real/data" -m immediate -w stop >/dev/null || true
    fi
}

serve() {
    local real
    real=$(readlink -f "$folder")
    as_owner "$bin/pg_ctl" -D "$real/data" -l "$real/server.log" -w \
        -o "-k $real -p $port -c listen_addresses= -c fsync=off -c max_connections=200" start > /dev/null
}

case $action in
restart)
    stop
    sleep "${3:-0}"
    serve
    ;;
halt)   # stopped as by a power cut, to be served again
    stop
    ;;
serve)
    serve
    ;;
start)
    stop
    if [ -L "$folder" ]; then rm -rf "$(readlink -f "$folder")"; fi
    rm -rf "$folder"
    mkdir -p "$(dirname "$folder")"
    if [ "$(id -u)" -eq 0 ]; then
        real=$(mktemp -d /tmp/zolt-pg.XXXXXX)
        chown nobody "$real"
        ln -s "$real" "$folder"
    else
        mkdir -p "$folder"
        real=$folder
    fi
    as_owner "$bin/initdb" -D "$real/data" -U zolt --auth=trust --encoding=UTF8 --locale=C.UTF-8 \
        > "$real/initdb.log"
    serve
    "$bin/psql" -q -h "$folder" -p $port -U zolt -d postgres -c "CREATE DATABASE zolt"
    "$bin/psql" -q -h "$folder" -p $port -U zolt -d zolt -c "CREATE EXTENSION citext" -c "CREATE EXTENSION unaccent"
    cat > "$folder/odbc.ini" <<INI
[ZoltTest]
Driver=PostgreSQL Unicode
Servername=$folder
Port=$port
Database=zolt
Username=zolt
INI
    ;;
stop)
    stop
    if [ -L "$folder" ]; then   # the folder under /tmp goes with it
        rm -rf "$(readlink -f "$folder")" "$folder"
    fi
    ;;
*)
    echo "usage: $0 start|stop|halt|serve|restart FOLDER [DOWN]" >&2
    exit 2
    ;;
esac
