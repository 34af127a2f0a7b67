#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# picture-of-window.sh <picture.png> <program> [<key>]: runs the program on the present X display, presses the
# key in its window, waits until the window has settled, writes a picture of it and ends the program.
set -euo pipefail
picture=$1
program=$2
key=${3:-}

"$program" &
pid=$!
trap 'kill "$pid" 2> /dev/null || true' EXIT
window=$(timeout 30 xdotool search --sync --onlyvisible --pid "$pid" --name . | tail -n 1) ||
    { echo "No window came up within 30 seconds." >&2; exit 1; }

[ -z "$key" ] || { sleep 1; xdotool windowfocus "$window" key "$key"; sleep 1; }

# The picture is taken when two in a row are the same.
mkdir -p "$(dirname "$picture")"
before=
for _ in $(seq 50); do
    import -window "$window" "$picture"
    now=$(cksum < "$picture")
    [ "$now" = "$before" ] && break
    before=$now
    sleep 0.1
done
kill "$pid"
wait "$pid" && echo "A picture of the window is in $picture"
