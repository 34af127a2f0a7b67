#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# bench/imaging.sh [options]: builds the imaging benchmark, runs it and prints its tables and goals; the results also go
# to build/bench/imaging.csv, imaging.md and, as a chart, imaging.svg. With --filter REGEX it runs the contests whose
# names match; --help tells of the other options. bench/imaging.sh record runs everything and puts the results into
# docs/bench-imaging.*.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../scripts/setup.sh"

need_packages "to build the imaging benchmark and its peers" g++ cmake ninja-build pkg-config qt6-base-dev \
    libpixman-1-dev libcairo2-dev libsdl2-dev libagg-dev libyuv-dev libopencv-imgproc-dev libstb-dev
need_packages "to draw the chart" gnuplot-nox

record=no
[ "${1:-}" = record ] && record=yes && shift
folder=$root/build/bench
build bench bench_imaging
QT_QPA_PLATFORM=offscreen "$folder/bench/imaging/bench_imaging" \
    --csv "$folder/imaging.csv" --markdown "$folder/imaging.md" "$@"
awk -F, -f bench/imaging/chart.awk "$folder/imaging.csv" > "$folder/chart.dat"
if [ -s "$folder/chart.dat" ]; then
    gnuplot -e "data='$folder/chart.dat'; chart='$folder/imaging.svg'" bench/imaging/chart.gp
fi
if [ $record = yes ]; then
    cp "$folder/imaging.csv" docs/bench-imaging.csv
    cp "$folder/imaging.svg" docs/bench-imaging.svg
    # What stands above the mark is written by hand.
    sed -i '/^<!-- results -->$/q' docs/bench-imaging.md
    { echo && cat "$folder/imaging.md"; } >> docs/bench-imaging.md
fi
