#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: by_pkgconfig.sh <prefix> <compiler> <work folder>
# Builds the consumer by the pkg-config file that is installed under the prefix, and runs it.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$3"
file=$(find "$1" -name ksimaging.pc)
libraries=$(dirname "$(dirname "$file")")
flags=$(PKG_CONFIG_PATH="$(dirname "$file")" pkg-config --cflags --libs ksimaging)
# The flags are words that the compiler takes one by one.
# shellcheck disable=SC2086
"$2" -std=c++20 -O1 "$here/main.cpp" -o "$3/consumer" $flags
LD_LIBRARY_PATH="$libraries" "$3/consumer"
