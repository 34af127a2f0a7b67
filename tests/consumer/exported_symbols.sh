#!/bin/sh
# SPDX-License-Identifier: MIT
# Usage: exported_symbols.sh <nm> <library> <list>
# Fails unless the library exports exactly the symbols of the list (a linker's version script).
set -eu
listed=$(sed -n 's/^    \(.*[^*]\);$/\1/p' "$3" | LC_ALL=C sort)
exported=$("$1" -D --defined-only "$2" | awk '$2 != "A" { sub(/@.*/, "", $3); print $3 }' | LC_ALL=C sort -u)
test -n "$listed"
if [ "$listed" != "$exported" ]; then
    echo "listed:" "$listed" "exported:" "$exported" | tr ' ' '\n' | c++filt
    exit 1
fi
