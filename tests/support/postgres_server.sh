#!/usr/bin/env bash
# A throw-away PostgreSQL server on loopback for the tests.
#   postgres_server.sh start FOLDER   starts it, making the cluster on first use; its URL lies in FOLDER/url afterwards
#   postgres_server.sh kill FOLDER    ends it as a power cut would
#   postgres_server.sh stop FOLDER    ends it and removes the cluster
# It ends by itself when the program that called "start" (ctest, a test) does.
set -euo pipefail
action=$1 folder=$2
programs=$(ls -d /usr/lib/postgresql/*/bin /usr/pgsql-*/bin 2> /dev/null | sort -V | tail -n 1 || true)
[ -n "$programs" ] && PATH="$programs:$PATH"
user=""
[ "$(id -u)" -eq 0 ] && user=$(id -nu postgres 2> /dev/null || echo nobody) # the server refuses to run as root
as_user() { if [ -n "$user" ]; then runuser -u "$user" -- env PATH="$PATH" "$@"; else "$@"; fi; }
place=$(cat "$folder/place" 2> /dev/null || true)

make_cluster() {
    mkdir -p "$folder"
    place=$(mktemp -d "${TMPDIR:-/tmp}/ebtq-postgres.XXXXXX")
    echo "$place" > "$folder/place"
    tr -dc a-z0-9 < /dev/urandom | head -c 24 > "$place/password" || true
    chmod 755 "$place"
    [ -n "$user" ] && chown -R "$user" "$place"
    as_user initdb -D "$place/data" -U tester -A scram-sha-256 --pwfile="$place/password" -E UTF8 --locale=C.UTF-8 \
        --no-sync > /dev/null
    # Nothing here outlives the test, so nothing need reach the disk.
    cat >> "$place/data/postgresql.conf" <<- SETTINGS
	listen_addresses = '127.0.0.1'
	unix_socket_directories = ''
	fsync = off
	max_connections = 80
	shared_buffers = 64MB
	SETTINGS
}

start() {
    local port tries=10
    [ -n "$place" ] && [ -d "$place" ] || make_cluster
    port=$(cat "$folder/port" 2> /dev/null || true)
    until as_user pg_ctl start -w -s -D "$place/data" -l "$place/log" -o "-p ${port:=$((20000 + RANDOM % 12000))}" \
        < /dev/null > /dev/null 2>&1; do
        tries=$((tries - 1))
        [ -e "$folder/port" ] || port="" # a server that was there before comes back where it was
        [ $tries -gt 0 ] || { tail -n 20 "$place/log" >&2; return 1; }
    done
    echo "$port" > "$folder/port"
    echo "postgresql://tester:$(cat "$place/password")@127.0.0.1:$port/postgres" > "$folder/url"
    [ -e "$folder/watcher" ] && return 0
    setsid bash -c 'tail --pid="$1" -f /dev/null; exec "$0" stop "$2"' "$0" "$PPID" "$folder" < /dev/null \
        > /dev/null 2>&1 &
    echo $! > "$folder/watcher"
}

kill_all() {
    local main all
    main=$(head -n 1 "$place/data/postmaster.pid")
    all="$main $(ps -o pid= --ppid "$main" | xargs)"
    kill -KILL $all 2> /dev/null || true
    # Until the last of them is gone; one that only waits for its parent to take note is.
    while [ -n "$(ps -o stat= -p "${all// /,}" | grep -v '^Z')" ]; do sleep 0.05; done
    rm -f "$place/data/postmaster.pid"
}

stop() {
    local watcher
    watcher=$(cat "$folder/watcher" 2> /dev/null || true)
    [ -n "$place" ] && [ -e "$place/data/postmaster.pid" ] &&
        { as_user pg_ctl stop -w -s -m immediate -D "$place/data" > /dev/null 2>&1 || true; }
    [ -n "$place" ] && rm -rf "$place"
    rm -rf "$folder"
    [ -n "$watcher" ] && [ "$watcher" != $$ ] && kill -- "-$watcher" 2> /dev/null
    return 0
}

case "$action" in
    start) start ;;
    kill) kill_all ;;
    stop) stop ;;
esac
