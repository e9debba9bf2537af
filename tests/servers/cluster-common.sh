# SPDX-License-Identifier: MIT
# What the suite's throwaway servers share, sourced by pg-cluster.sh and
# mariadb-cluster.sh: ACTION FOLDER [DOWN], where ACTION is start, stop, halt
# (stopped without a word to its clients, as by a power cut), serve (started
# again after halt) or restart (halt, then serve after DOWN seconds, 0 by
# default). Run as root, the server runs as nobody, in a folder of its own
# under /tmp that FOLDER links to (nobody may not be able to reach the build
# folder). The sourcing script defines stop, serve and create (makes the
# server's data in the folder it is given, serves it, adds the suite's user
# and database), then calls run_action.

action=$1
folder=$(realpath -m -s "$2")
down=${3:-0}

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u nobody -- "$@"; else "$@"; fi
}

# A new, empty folder for the server; its real path on standard output.
new_folder() {
    local real
    if [ -L "$folder" ]; then rm -rf "$(readlink -f "$folder")"; fi
    rm -rf "$folder"
    mkdir -p "$(dirname "$folder")"
    if [ "$(id -u)" -eq 0 ]; then
        real=$(mktemp -d "/tmp/zolt-$1.XXXXXX")
        chown nobody "$real"
        ln -s "$real" "$folder"
    else
        mkdir -p "$folder"
        real=$folder
    fi
    echo "$real"
}

# $1 names the folder under /tmp: zolt-$1.XXXXXX.
run_action() {
    case $action in
    restart)
        stop
        sleep "$down"
        serve
        ;;
    halt)
        stop
        ;;
    serve)
        serve
        ;;
    start)
        stop
        create "$(new_folder "$1")"
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
}
