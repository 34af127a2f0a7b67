# SPDX-License-Identifier: MIT
# Sourced by ./run, ./test, ./package and the scripts of bench/ and tests/: Debian packages and the build.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libsystemd-dev libfontconfig-dev libstb-dev)
window_packages=(fonts-dejavu-core qt6-translations-l10n)
screen_packages=(xvfb xauth x11-utils xdotool imagemagick)
test_packages=(libgtest-dev locales libpng-dev libsdl2-dev dbus at-spi2-core openbox python3-pyatspi doxygen clang-19 libclang-rt-19-dev git)
cross_packages=(g++ cmake ninja-build pkg-config g++-aarch64-linux-gnu g++-riscv64-linux-gnu g++-s390x-linux-gnu qemu-user libgtest-dev)
package_packages=(build-essential debhelper doxygen lintian desktop-file-utils appstream)

fail() {
    echo "${0##*/}: $*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# need_packages <why> <package>...: installs those that are missing, after saying so.
need_packages() {
    local why=$1 missing=() package
    shift
    command -v dpkg-query > /dev/null || fail "this is not a Debian system: please install the counterparts of: $*"
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2> /dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} = 0 ] && return
    echo "Installing ${missing[*]} ($why)"
    [ "$(id -u)" = 0 ] || command -v sudo > /dev/null ||
        fail "cannot install ${missing[*]}: neither root nor sudo; have an administrator install them."
    install_packages "${missing[@]}" ||
        fail "cannot install ${missing[*]} with apt-get (the lines above say why); install them and start again."
}

install_packages() {
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o Dpkg::Use-Pty=0)
    as_root "${apt[@]}" update > /dev/null && as_root "${apt[@]}" install -y --no-install-recommends "$@"
}

# build <preset> [<target>]: configures where needed, then builds, showing progress.
build() {
    local log
    cd "$root"
    if ! [ -f "build/$1/build.ninja" ]; then
        log=$(cmake --preset "$1" 2>&1) || fail "cmake cannot configure preset $1:"$'\n'"$log"
    fi
    cmake --build --preset "$1" ${2:+--target "$2"} || fail "the build of preset $1 failed (the lines above say where)."
}
