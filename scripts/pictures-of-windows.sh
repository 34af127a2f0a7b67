#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Takes the pictures of the programs' windows in docs/pictures again, with the settings that a new user has.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/setup.sh"

need_packages "to build the programs" "${build_packages[@]}" "${window_packages[@]}" "${test_packages[@]}"
need_packages "for the virtual display and its pictures" "${screen_packages[@]}"
build dev NymbrelConfig
build dev gallery
XDG_CONFIG_HOME=$(mktemp -d)
export XDG_CONFIG_HOME
trap 'rm -r "$XDG_CONFIG_HOME"' EXIT

# take <picture> <program> [<key>]
take() {
    xvfb-run -a -s "-screen 0 1400x800x24" "$root/scripts/picture-of-window.sh" \
        "$root/docs/pictures/$1.png" "$root/build/dev/$2" "${@:3}"
}

take window app/NymbrelConfig
take gallery examples/gallery
cp "$root/schemes/night.scheme" "$XDG_CONFIG_HOME/Nymbrel_settings"
take preview app/NymbrelConfig F9
