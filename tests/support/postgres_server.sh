#!/usr/bin/env bash
# Throw-away PostgreSQL servers on loopback for the tests.
#   postgres_server.sh start FOLDER        starts it, making the cluster on first use; its URL lies in FOLDER/url afterwards
#   postgres_server.sh start FOLDER tls    the same, taking encrypted connections only: as "office.test", with a
#                                          certificate of FOLDER/authority.pem; FOLDER/stranger.pem has signed nothing
#   postgres_server.sh standby FOLDER OF   starts a copy of the server in OF that follows it; OF confirms nothing any
#                                          more that the copy has not got
#   postgres_server.sh promote FOLDER      makes a standby a server that is written
#   postgres_server.sh kill FOLDER         ends it as a power cut would
#   postgres_server.sh stop FOLDER         ends it and removes the cluster
# It ends by itself when the program that called "start" or "standby" (ctest, a test) does.
set -euo pipefail
action=$1 folder=$2 extra=${3:-}
programs=$(ls -d /usr/lib/postgresql/*/bin /usr/pgsql-*/bin 2> /dev/null | sort -V | tail -n 1 || true)
[ -n "$programs" ] && PATH="$programs:$PATH"
user=""
[ "$(id -u)" -eq 0 ] && user=$(id -nu postgres 2> /dev/null || echo nobody) # the server refuses to run as root
as_user() { if [ -n "$user" ]; then runuser -u "$user" -- env PATH="$PATH" "$@"; else "$@"; fi; }
place=$(cat "$folder/place" 2> /dev/null || true)

# A folder that the server's user can reach, wherever the build tree lies.
make_place() {
    mkdir -p "$folder"
    place=$(mktemp -d "${TMPDIR:-/tmp}/ebtq-postgres.XXXXXX")
    echo "$place" > "$folder/place"
    chmod 755 "$place"
}
hand_over() { [ -z "$user" ] || chown -R "$user" "$place"; }

make_cluster() {
    make_place
    tr -dc a-z0-9 < /dev/urandom | head -c 24 > "$place/password" || true
    [ "$extra" != tls ] || make_certificates
    hand_over
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
    [ "$extra" != tls ] || demand_encryption
}

make_certificates() {
    local make=(openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2) name
    for name in authority stranger; do
        "${make[@]}" -subj "/CN=$name" -keyout "$place/$name.key" -out "$folder/$name.pem" 2> /dev/null
    done
    "${make[@]}" -subj /CN=server -addext subjectAltName=DNS:office.test -CA "$folder/authority.pem" \
        -CAkey "$place/authority.key" -keyout "$place/server.key" -out "$place/server.pem" 2> /dev/null
    chmod 600 "$place/server.key"
}

demand_encryption() {
    cat >> "$place/data/postgresql.conf" <<- SETTINGS
	ssl = on
	ssl_cert_file = '$place/server.pem'
	ssl_key_file = '$place/server.key'
	SETTINGS
    echo "hostssl all all 127.0.0.1/32 scram-sha-256" > "$place/data/pg_hba.conf"
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

standby() {
    local first
    first=$(cat "$extra/place")
    make_place
    cp "$first/password" "$place/password"
    (umask 077 && echo "*:*:*:tester:$(cat "$place/password")" > "$place/passfile")
    hand_over
    export PGHOST=127.0.0.1 PGUSER=tester PGPASSFILE="$place/passfile" PGPORT
    PGPORT=$(cat "$extra/port")
    as_user pg_basebackup -D "$place/data" -R -X stream -c fast --no-sync
    start
    ask_first() { as_user psql -X -q -A -t -d postgres -c "$1"; }
    # Only now, or the copy would itself wait for one once it is promoted.
    ask_first "alter system set synchronous_standby_names='*'"
    ask_first "select pg_reload_conf()" > /dev/null
    until [ "$(ask_first "select sync_state from pg_stat_replication")" = sync ]; do sleep 0.05; done
}

promote() { as_user pg_ctl promote -w -s -D "$place/data"; }

# The main process is halted first, so that it makes no other one meanwhile.
kill_all() {
    local main all
    main=$(head -n 1 "$place/data/postmaster.pid")
    kill -STOP "$main"
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
    standby) standby ;;
    promote) promote ;;
    kill) kill_all ;;
    stop) stop ;;
esac
