#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The test suite's own MariaDB server: ./mariadb-cluster.sh ACTION FOLDER [DOWN]
# (the actions in cluster-common.sh). A throwaway server in FOLDER, reached
# only through the Unix socket FOLDER/mysqld.sock (no TCP), with the user
# "zolt" (no password, every right, as the suite makes a database per test)
# and the database "zolt".
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/cluster-common.sh" "$@"

stop() {
    local real pid
    real=$(readlink -f "$folder" || true)
    if [ -n "$real" ] && [ -f "$real/mysqld.pid" ]; then
        pid=$(cat "$real/mysqld.pid")
        kill -9 "$pid" 2>/dev/null || true
        while kill -0 "$pid" 2>/dev/null; do sleep 0.1; done
        rm -f "$real/mysqld.pid" "$real/mysqld.sock"
    fi
}

serve() {
    local real
    real=$(readlink -f "$folder")
    as_owner /usr/sbin/mariadbd --no-defaults --datadir="$real/data" --socket="$real/mysqld.sock" \
        --pid-file="$real/mysqld.pid" --log-error="$real/server.log" --skip-networking \
        --character-set-server=utf8mb4 --collation-server=utf8mb4_uca1400_as_ci \
        --innodb-flush-log-at-trx-commit=2 --innodb-buffer-pool-size=64M --max-connections=200 \
        > /dev/null 2>&1 &
    for _ in $(seq 300); do
        [ -S "$real/mysqld.sock" ] && mariadb --no-defaults -S "$real/mysqld.sock" -u root -e "SELECT 1" > /dev/null 2>&1 && return 0
        sleep 0.1
    done
    echo "the MariaDB server in $real did not start: see $real/server.log" >&2
    exit 1
}

create() {
    as_owner mariadb-install-db --no-defaults --datadir="$1/data" --auth-root-authentication-method=normal \
        --skip-test-db > "$1/install.log" 2>&1
    serve
    mariadb --no-defaults -S "$1/mysqld.sock" -u root -e \
        "CREATE USER zolt@localhost; GRANT ALL ON *.* TO zolt@localhost WITH GRANT OPTION;
         CREATE DATABASE zolt CHARACTER SET utf8mb4 COLLATE utf8mb4_uca1400_as_ci;"
}

run_action mariadb
