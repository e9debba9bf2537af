#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The test suite's own PostgreSQL server: ./pg-cluster.sh start|stop FOLDER.
# A throwaway cluster in FOLDER, reached only through a Unix socket there
# (no TCP), trusting its user "zolt", with the database "zolt" (citext
# installed) and an ODBC data source "ZoltTest" in FOLDER/odbc.ini for
# unixODBC's PostgreSQL driver. Run as root, the server runs as nobody.
set -euo pipefail
action=$1
folder=$(realpath -m "$2")
port=55432
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u nobody -- "$@"; else "$@"; fi
}

stop() {
    if [ -f "$folder/data/postmaster.pid" ]; then
        as_owner "$bin/pg_ctl" -D "$folder/data" -m immediate -w stop >/dev/null || true
    fi
}

case $action in
start)
    stop
    rm -rf "$folder"
    mkdir -p "$folder"
    [ "$(id -u)" -ne 0 ] || chown nobody "$folder"
    as_owner "$bin/initdb" -D "$folder/data" -U zolt --auth=trust --encoding=UTF8 --locale=C.UTF-8 \
        > "$folder/initdb.log"
    as_owner "$bin/pg_ctl" -D "$folder/data" -l "$folder/server.log" -w \
        -o "-k $folder -p $port -c listen_addresses= -c fsync=off -c max_connections=200" start > /dev/null
    "$bin/psql" -q -h "$folder" -p $port -U zolt -d postgres -c "CREATE DATABASE zolt"
    "$bin/psql" -q -h "$folder" -p $port -U zolt -d zolt -c "CREATE EXTENSION citext"
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
    ;;
*)
    echo "usage: $0 start|stop FOLDER" >&2
    exit 2
    ;;
esac
