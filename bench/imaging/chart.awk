# SPDX-License-Identifier: MIT
# Reads the benchmark's CSV: per contest the library's rate, the fastest peer's rate and the peer's name. Colour
# runs and destinations that are not opaque are left to the table.
function is_peer(name) {
    return name !~ /ksimaging|memcpy|memset|plain|pixel kernel|radius|the tool|channels only|pixman OVER/
}
NR == 1 || $1 ~ /Dissolve|Filter|Overlay|^Over|\/(run|translucent|mixed)\// { next }
!($1 in own) && $2 == "ksimaging" { order[++count] = $1; own[$1] = $3 }
is_peer($2) && $3 > fastest[$1] { fastest[$1] = $3; peer[$1] = $2 }
END {
    for (i = 1; i <= count; ++i)
        if (order[i] in peer)
            printf "\"%s\" %s %s \"%s\"\n", order[i], own[order[i]], fastest[order[i]], peer[order[i]]
}
