#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# bench/imaging.sh [options]: builds the imaging benchmark, runs it and prints its tables and goals. With
# --filter REGEX it runs the contests whose names match; --help tells of the other options. Results go to
# build/bench/imaging.csv and, without a filter, into the chart imaging.svg beside it.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../scripts/setup.sh"

need_packages "to build the imaging benchmark and its peers" g++ cmake ninja-build pkg-config qt6-base-dev \
    libpixman-1-dev libcairo2-dev libsdl2-dev libagg-dev libyuv-dev libopencv-imgproc-dev libstb-dev
need_packages "to draw the chart" gnuplot-nox

folder=$root/build/bench
build bench bench_imaging
QT_QPA_PLATFORM=offscreen "$folder/bench/imaging/bench_imaging" --csv "$folder/imaging.csv" "$@"
if [ $# = 0 ]; then
    gnuplot -e "csv='$folder/imaging.csv'; chart='$folder/imaging.svg'" bench/imaging/chart.gp
    echo "Chart: $folder/imaging.svg"
fi
