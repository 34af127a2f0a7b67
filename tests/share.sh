#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# tests/share.sh: prints the lines of code of each folder and its share of all, then the share of the tests. Counts the
# C++, CMake, shell and Python files that git tracks, without blank lines and comment lines.
set -euo pipefail
cd "$(dirname -- "${BASH_SOURCE[0]}")/.."

git ls-files -z | LC_ALL=C xargs -0 awk '
    FNR == 1 {
        slashes = FILENAME ~ /\.(h|cpp)$/
        hashes = FILENAME ~ /(\.(sh|py|cmake)|CMakeLists\.txt)$/ || /^#!.*(sh|python3?)$/
        folder = FILENAME ~ /\// ? FILENAME : "(root)"
        sub(/\/.*/, "", folder)
    }
    slashes && !/^[ \t]*(\/\/|$)/ || hashes && !/^[ \t]*(#|$)/ { print folder }
' | sort | uniq -c | sort -rn | awk '
    { lines[NR] = $1; folder[NR] = $2; total += $1 }
    $2 == "tests" { tests = $1 }
    END {
        for (i = 1; i <= NR; ++i)
            printf "%-14s %6d %6.1f %%\n", folder[i], lines[i], 100 * lines[i] / total
        printf "%-14s %6d, of which tests %.1f %%\n", "all", total, 100 * tests / total
    }'
