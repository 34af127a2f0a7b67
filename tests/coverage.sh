#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# tests/coverage.sh: builds the imaging library with counters, runs its tests, and says how much of its folders they
# ran, line by line in build/coverage/report.html. Fails below 98 % of the lines or 90 % of the branches.
set -euo pipefail
source "$(dirname -- "${BASH_SOURCE[0]}")/../scripts/setup.sh"

need_packages "to build the imaging library and its tests" g++ cmake ninja-build libgtest-dev
need_packages "to count what the tests run" gcovr

cd "$root"
cmake --preset coverage -DNYMBREL_EXAMPLES=OFF > /dev/null
build coverage
find build/coverage -name '*.gcda' -delete
# Each test alone would write its counters once per process; the programs run whole write them once.
for test in build/coverage/tests/*/*_test; do
    "$test" --gtest_brief=1
done
for target in archive drawing; do
    "build/coverage/tests/fuzz/${target}_seeded" 5000 2> /dev/null
done
gcovr --root . --object-directory build/coverage --exclude-throw-branches --exclude-unreachable-branches \
    --filter 'raster/' --filter 'merge/' --filter 'bitmaptools/' --filter 'hdr/' --filter 'simd/' --filter 'exchange/' \
    --exclude 'tests/' --html-details build/coverage/report.html --txt - --print-summary \
    --fail-under-line 98 --fail-under-branch 90 build/coverage
