#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The test suite's own MariaDB server: ./mariadb-cluster.sh ACTION FOLDER, where
# ACTION is start, stop, halt (stopped without a word to its clients, as by a
# power cut), serve (started again after halt) or restart (halt, then serve
# after DOWN seconds, a third argument, 0 by default).
# A throwaway server in FOLDER, reached only through the Unix socket
# FOLDER/mysqld.sock (no TCP), with the user "zolt" (no password, every
# right, as the suite makes a database per test) and the database "zolt".
# Run as root, the server runs as nobody, in a folder of its own under /tmp
# that FOLDER links to (nobody may not be able to reach the build folder).
set -euo pipefail
action=$1
folder=$(realpath -m -s "$2")

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u nobody -- "$@"; else "$@"; fi
}

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
        real=$(mktemp -d /tmp/zolt-mariadb.XXXXXX)
        chown nobody "$real"
        ln -s "$real" "$folder"
    else
        mkdir -p "$folder"
        real=$folder
    fi
    as_owner mariadb-install-db --no-defaults --datadir="$real/data" --auth-root-authentication-method=normal \
        --skip-test-db > "$real/install.log" 2>&1
    serve
    mariadb --no-defaults -S "$real/mysqld.sock" -u root -e \
        "CREATE USER zolt@localhost; GRANT ALL ON *.* TO zolt@localhost WITH GRANT OPTION;
         CREATE DATABASE zolt CHARACTER SET utf8mb4 COLLATE utf8mb4_uca1400_as_ci;"
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
