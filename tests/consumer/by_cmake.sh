#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: by_cmake.sh <prefix> <compiler> <work folder>
# Builds the consumer by the CMake package that is installed under the prefix, and runs it.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$3"
cmake -S "$here" -B "$3" -DCMAKE_CXX_COMPILER="$2" -DCMAKE_PREFIX_PATH="$1" -DCMAKE_BUILD_TYPE=Release
cmake --build "$3"
"$3/consumer_imaging"
"$3/consumer_imaging_static"
