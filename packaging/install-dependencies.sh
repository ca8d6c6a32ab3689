# To be sourced: install_dependencies build|test|trial installs the Debian packages that are not there yet.

build_packages=(g++ cmake ninja-build ccache mold pkg-config qt6-base-dev qt6-svg-dev libgl-dev libqt6sql6-sqlite
    libsqlite3-dev libpq-dev libsodium-dev libxlsxwriter-dev libzip-dev zlib1g-dev qt6-translations-l10n
    breeze-icon-theme fonts-noto-cjk)
test_packages=(postgresql openssl procps libgtest-dev libgmock-dev poppler-utils)

install_dependencies() {
    local wanted missing=() package as_root=()
    mkdir -p build
    case $1 in
        build) wanted=("${build_packages[@]}") ;;
        test) wanted=("${build_packages[@]}" "${test_packages[@]}") ;;
        trial) wanted=(mmdebstrap git) ;;
    esac
    if ! command -v dpkg-query > /dev/null; then
        echo "本机不是 Debian 系统，请自行安装：${wanted[*]}" >&2
        return 0
    fi
    for package in "${wanted[@]}"; do
        dpkg-query -W -f '${Status}' "$package" 2> /dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo > /dev/null; then
            echo "缺少软件包：${missing[*]}" >&2
            echo "请用 root 运行本脚本，或安装 sudo，或手工安装以上软件包。" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "正在安装软件包：${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" > build/install.log 2>&1 || { tail -n 30 build/install.log >&2; return 1; }
}
