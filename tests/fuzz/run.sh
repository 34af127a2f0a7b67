#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: tests/fuzz/run.sh [minutes]
# Builds the fuzz targets with clang and runs each for so long, 30 minutes unless told otherwise. What makes one
# fail is left in build/fuzz/corpus.
set -eu
cd "$(dirname "$0")/../.."
minutes=${1:-30}
export TMPDIR=/dev/shm LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
cmake --preset fuzz > /dev/null
cmake --build --preset fuzz
for target in archive drawing settings catalog picture; do
    corpus=build/fuzz/corpus/$target
    mkdir -p "$corpus"
    "build/fuzz/tests/fuzz/${target}_seeded" --write "$corpus"
    "build/fuzz/tests/fuzz/${target}_fuzz" -max_total_time=$((minutes * 60)) -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 "-artifact_prefix=build/fuzz/corpus/$target-" "$corpus"
done
