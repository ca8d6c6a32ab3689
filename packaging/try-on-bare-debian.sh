#!/usr/bin/env bash
# Tries the commands of the README where nothing is installed: makes a bare Debian 12 below build/bare, clones HEAD
# into it and runs them there. Packages and compiled files are kept beside it for the next time. Needs root.
#   try-on-bare-debian.sh run         ./run --tour, as on a machine without a display
#   try-on-bare-debian.sh run test    then ./test
set -euo pipefail
cd "$(dirname "$0")/.."
[ "$(id -u)" -eq 0 ] || exec sudo --preserve-env=EBTQ_WERROR "$0" "$@"
if ! command -v mmdebstrap > /dev/null; then
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends mmdebstrap > /dev/null
fi

place=$PWD/build/bare
root=$place/root
base=$place/base.tar
mkdir -p "$place/archives" "$place/ccache"
leave() {
    local mount
    for mount in var/cache/apt/archives root/.cache/ccache proc dev/pts dev; do
        mountpoint -q "$root/$mount" && umount -l "$root/$mount"
    done
    rm -rf --one-file-system "$root"
}
trap leave EXIT
leave

if [ ! -e "$base" ]; then
    mmdebstrap --quiet --mode=root --variant=apt --include=ca-certificates,git,sudo bookworm "$place/new.tar"
    mv "$place/new.tar" "$base"
fi
mkdir "$root"
tar -xpf "$base" -C "$root"
mkdir -p "$root/root/.cache/ccache"
mount --bind /dev "$root/dev"
mount --bind /dev/pts "$root/dev/pts"
mount -t proc proc "$root/proc"
mount --bind "$place/archives" "$root/var/cache/apt/archives"
mount --bind "$place/ccache" "$root/root/.cache/ccache"
cp /etc/resolv.conf "$root/etc/resolv.conf"
echo 'APT::Keep-Downloaded-Packages "true";' > "$root/etc/apt/apt.conf.d/99keep"
git clone --quiet --no-hardlinks . "$root/root/ebtq"

inside() {
    chroot "$root" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        CCACHE_COMPILERCHECK=content ${EBTQ_WERROR:+EBTQ_WERROR="$EBTQ_WERROR"} \
        bash -c 'cd /root/ebtq && exec "$@"' bash "$@"
}
for command in "$@"; do
    begin=$SECONDS
    case $command in
        run) inside ./run --tour tour && [ -n "$(ls "$root"/root/ebtq/tour/*.png)" ] ;;
        test) inside ./test ;;
        *) echo "unknown: $command" >&2; exit 2 ;;
    esac
    echo "bare Debian: ./$command in $((SECONDS - begin)) s"
done
