#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# bench/imaging.sh [options]: builds the imaging benchmark, runs it and prints its tables and goals; the results also go
# to build/bench/imaging.csv, imaging.md and, as a chart, imaging.svg. With --filter REGEX it runs the contests whose
# names match; --help tells of the other options.
# bench/imaging.sh record: runs everything and puts the results into docs/bench-imaging.*.
# bench/imaging.sh tables: measures nothing, and makes the tables and the chart in docs again from docs/bench-imaging.csv.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../scripts/setup.sh"

need_packages "to build the imaging benchmark and its peers" g++ cmake ninja-build pkg-config qt6-base-dev \
    libpixman-1-dev libcairo2-dev libsdl2-dev libagg-dev libyuv-dev libopencv-imgproc-dev libstb-dev
need_packages "to draw the chart" gnuplot-nox

build bench bench_imaging
folder=$root/build/bench

benchmark() {
    QT_QPA_PLATFORM=offscreen "$folder/bench/imaging/bench_imaging" "$@" --markdown "$folder/imaging.md"
}

# draw_chart <results.csv> <chart.svg>
draw_chart() {
    awk -F, -f bench/imaging/chart.awk "$1" > "$folder/chart.dat"
    [ ! -s "$folder/chart.dat" ] || gnuplot -e "data='$folder/chart.dat'; chart='$2'" bench/imaging/chart.gp
}

fill_docs() {
    benchmark --from docs/bench-imaging.csv
    draw_chart docs/bench-imaging.csv docs/bench-imaging.svg
    # What stands above the mark is written by hand.
    sed -i '/^<!-- results -->$/q' docs/bench-imaging.md
    { echo && cat "$folder/imaging.md"; } >> docs/bench-imaging.md
}

case ${1:-} in
record)
    benchmark --csv docs/bench-imaging.csv "${@:2}"
    fill_docs
    ;;
tables) fill_docs ;;
*)
    benchmark --csv "$folder/imaging.csv" "$@"
    draw_chart "$folder/imaging.csv" "$folder/imaging.svg"
    ;;
esac
