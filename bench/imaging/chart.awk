# SPDX-License-Identifier: MIT
# Reads the benchmark's CSV: per contest the library's rate, the fastest peer's rate, the larger of both, and the ratio
# with the peer's name. Colour runs and destinations that are not opaque are left to the tables.
/^#/ || $1 ~ /\/(run|translucent|mixed)\// { next }
$3 == "ours" { order[++count] = $1; own[$1] = $4 }
$3 == "peer" && $4 > fastest[$1] { fastest[$1] = $4; peer[$1] = $2 }
END {
    for (i = 1; i <= count; ++i) {
        name = order[i]
        ours = own[name]
        theirs = fastest[name]
        if (name in peer)
            printf "\"%s\" %s %s %s \"%.2f × %s\"\n", name, ours, theirs, (ours > theirs ? ours : theirs),
                ours / theirs, peer[name]
    }
}
