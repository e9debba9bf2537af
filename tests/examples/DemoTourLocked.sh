#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The sample application's tour on a locked PostgreSQL database, set up as
# the host's guide tells a shop: the owner makes the tables, locks them with
# zolt-server, grants the desks the application's own tables and gives them
# a login; the tour then runs as that login, and the login cannot make
# itself an administrator with plain SQL.
#   DemoTourLocked.sh ZOLT_DEMO ZOLT_SERVER SERVER_FOLDER TOUR_FOLDER
set -euo pipefail
demo=$1 server=$2 folder=$3 tour=$4
sql() { psql -X -q -v ON_ERROR_STOP=1 -h "$folder" -p 55432 "$@"; }
database() { echo "postgresql://$1@localhost:55432/demo_locked?host=$folder"; }

cleanup() {
    sql -U zolt -d zolt -c "DROP DATABASE IF EXISTS demo_locked WITH (FORCE)" \
        -c "DROP ROLE IF EXISTS demo_counter" -c "DROP ROLE IF EXISTS demo_desk" -c "DROP ROLE IF EXISTS demo_owner"
}
trap cleanup EXIT
cleanup
rm -rf "$tour"

sql -U zolt -d zolt -c "CREATE ROLE demo_owner LOGIN CREATEROLE" -c "CREATE DATABASE demo_locked OWNER demo_owner"
"$demo" --database "$(database demo_owner)" --rows 300 --prepare
"$server" lock "$(database demo_owner)" --desk-role demo_desk
sql -U demo_owner -d demo_locked -c "GRANT SELECT ON hang, donvi, nhacungcap TO demo_desk" \
    -c "CREATE ROLE demo_counter LOGIN IN ROLE demo_desk"

"$demo" --database "$(database demo_counter)" --tour "$tour"

if sql -U demo_counter -d demo_locked -c "UPDATE \"user\" SET idgroup = 1 WHERE name = 'thungan'" 2>/dev/null; then
    echo "the desk's login changed a user's group" >&2
    exit 1
fi
test "$(sql -U demo_owner -d demo_locked -A -t -c "SELECT idgroup FROM \"user\" WHERE name = 'thungan'")" = 8
