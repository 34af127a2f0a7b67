#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# bench/startup.sh [rounds]: measures how the program starts beside qt6ct and lxappearance.
#
# Installs what is missing, builds the release preset, and starts the three in turn (20 rounds after a warm-up)
# in a virtual X server with a session bus, each in its ordinary way and with a home directory of the run's own.
# Prints the medians and the goals, and leaves every figure in build/startup.csv. Then times the Apply command.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../scripts/setup.sh"

need_packages "to build the program" "${build_packages[@]}"
need_packages "for the virtual display" "${screen_packages[@]}" "${window_packages[@]}" dbus
need_packages "to measure" libx11-dev libxdamage-dev qt6ct lxappearance
build release
build startup bench/startup/all

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -m 700 "$home/run"
on_a_desktop() {
    env -i PATH="$PATH" LANG=C.UTF-8 HOME="$home" XDG_RUNTIME_DIR="$home/run" \
        xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- "$@" 2> "$home/errors" ||
        fail "the measurement failed:"$'\n'"$(tail -n 20 "$home/errors")"
}

# qt6ct complains, in a panel of its own, unless it is the platform theme of its Qt.
on_a_desktop "$root/build/startup/bench/startup/startup" "${1:-20}" "$root/build/startup.csv" \
    "$root/build/release/app/NymbrelConfig" "QT_QPA_PLATFORMTHEME=qt6ct qt6ct" lxappearance
on_a_desktop "$root/build/startup/bench/startup/apply" 100
