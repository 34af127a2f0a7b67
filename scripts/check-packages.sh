#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the packages that ./package left in build/ into a bare Debian of its own, runs debian/tests there, takes a
# picture of the window (build/packages.png), and fails unless purging leaves every path as it was. For root only.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/setup.sh"

[ "$(id -u)" = 0 ] || fail "only root can make a bare Debian."
need_packages "to make a bare Debian" mmdebstrap
cd "$root"
shopt -s nullglob
packages=("$root"/build/*.deb)
[ ${#packages[@]} != 0 ] || fail "there are no packages in build/; ./package makes them."
names=$(for file in "${packages[@]}"; do dpkg-deb -f "$file" Package; done)

work=$(mktemp -d)
bare=$work/root
trap 'umount -q "$bare/proc" || true; rm -rf --one-file-system "$work"' EXIT

inside() {
    chroot "$bare" env -i -C /source HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive \
        AUTOPKGTEST_TMP=/tmp "$@" || fail "this failed in the bare Debian: $*"
}
install_all() { inside sh -c 'apt-get -qq -o Dpkg::Use-Pty=0 install -y --no-install-recommends ./debs/*.deb > /tmp/log'; }
# The names are words.
# shellcheck disable=SC2086
purge_all() { inside sh -c 'dpkg --purge "$@" > /tmp/log' purge $names; }
# All but users' homes, and what changes by itself: logs, caches and temporary files.
list_paths() {
    inside find / -xdev -regex '/\(proc\|sys\|dev\|run\|tmp\|root\|home\|source\|var/log\|var/cache\)' -prune -o -print |
        LC_ALL=C sort > "$work/$1"
}

echo "Making a bare Debian"
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
needed=$(sed -n 's/^Depends: //p' "$root/debian/tests/control" | tr ',' '\n' | tr -d ' ' |
    grep -vE '^(nymbrel-config|libksimaging-dev)$' | sort -u | paste -sd,)
mmdebstrap --quiet --variant=minbase --include="$needed,imagemagick" "$suite" "$bare" ||
    fail "mmdebstrap cannot make it (see above)."
mkdir -p "$bare/source/debs"
cp "${packages[@]}" "$bare/source/debs"
cp -r --parents -t "$bare/source" debian/tests tests/consumer scripts/picture-of-window.sh
mount -t proc proc "$bare/proc"
inside apt-get -qq update

# Once in advance: what the packages depend on stays.
install_all
purge_all
list_paths before

echo "Installing the packages, and running their tests"
install_all
for test in program consumer; do
    inside "debian/tests/$test"
done
inside xvfb-run -a -s "-screen 0 1024x768x24" scripts/picture-of-window.sh /tmp/packages.png nymbrel-config
cp "$bare/tmp/packages.png" build/

echo "Purging them"
purge_all
list_paths after
diff "$work/before" "$work/after" || fail "purging left these differences."
[ -z "$(inside find / -xdev -regex '/\(proc\|root\|tmp\|source\)' -prune -o -iregex '.*/[^/]*\(nymbrel\|ksimaging\|kestrune\)[^/]*' -print)" ] ||
    fail "purging left files of the packages."
echo "Nothing is left of the packages outside users' homes."
