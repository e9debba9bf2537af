#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The test suite's own PostgreSQL server: ./pg-cluster.sh ACTION FOLDER [DOWN]
# (the actions in cluster-common.sh). A throwaway cluster in FOLDER, reached
# only through a Unix socket there (no TCP), trusting its user "zolt", with
# the database "zolt" (citext and unaccent installed) and an ODBC data source
# "ZoltTest" in FOLDER/odbc.ini for unixODBC's PostgreSQL driver.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/cluster-common.sh" "$@"
port=55432
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)

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

create() {
    as_owner "$bin/initdb" -D "$1/data" -U zolt --auth=trust --encoding=UTF8 --locale=C.UTF-8 > "$1/initdb.log"
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
}

run_action pg
