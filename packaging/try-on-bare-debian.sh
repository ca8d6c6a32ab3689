#!/usr/bin/env bash
# Tries the commands of the README where nothing is installed: makes a bare Debian 12 below build/bare, clones HEAD
# into it and runs them there. Downloaded packages stay in build/bare; compiled files are shared with this machine's
# ccache. Needs root.
#   try-on-bare-debian.sh run         ./run --tour, as on a machine without a display
#   try-on-bare-debian.sh run test    then ./test
set -euo pipefail
cd "$(dirname "$0")/.."
place=$PWD/build/bare
root=$place/root

prepare() {
    source packaging/install-dependencies.sh
    install_dependencies trial
    mkdir -p "$place/archives"
    exec 9> "$place/lock"
    flock --nonblock 9 || { echo "another trial is running in $place" >&2; exit 1; }
    rm -rf "$root"
    mmdebstrap --quiet --variant=apt --include=ca-certificates,git,sudo bookworm "$root"
    git clone --quiet --no-hardlinks . "$root/root/ebtq"
}

# Mounts and processes live in namespaces, so none of them is left however the trial ends.
in_namespaces() {
    setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child "$0" --inside "$@" &
    trap 'kill -KILL %1 2> /dev/null || true; wait; rm -rf "$root"' EXIT
    wait %1
}

share() { mkdir -p "$1" "$root$2" && mount --bind "$1" "$root$2"; }

mount_all() {
    mount --rbind /dev "$root/dev"
    mount -t proc proc "$root/proc"
    share "$place/archives" /var/cache/apt/archives
    share "${CCACHE_DIR:-$HOME/.cache/ccache}" /root/.cache/ccache
    cp /etc/resolv.conf "$root/etc/resolv.conf"
}

# The compiler cache finds there what was compiled here, in whatever folder.
inside() {
    chroot "$root" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        CCACHE_BASEDIR=/root/ebtq CCACHE_NOHASHDIR=1 \
        ${EBTQ_WERROR:+EBTQ_WERROR="$EBTQ_WERROR"} bash -c 'cd /root/ebtq && exec "$@"' bash "$@"
}

try_all() {
    local command begin
    for command in "$@"; do
        begin=$SECONDS
        case $command in
            run) inside ./run --tour tour && ls "$root"/root/ebtq/tour/*.png > /dev/null ;;
            test) inside ./test ;;
            *) echo "unknown: $command" >&2; exit 2 ;;
        esac
        echo "bare Debian: ./$command in $((SECONDS - begin)) s"
    done
}

[ "$(id -u)" -eq 0 ] || exec sudo --preserve-env=EBTQ_WERROR,CCACHE_DIR "$0" "$@"
if [ "${1:-}" = --inside ]; then
    mount_all
    try_all "${@:2}"
else
    prepare
    in_namespaces "$@"
fi
