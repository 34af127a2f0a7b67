// SPDX-License-Identifier: MIT
// The limits of composing. A unit of its own, because it is compiled for this processor.
#include "bench/imaging/tasks.h"

void change_by_colour(std::uint32_t* destination, const std::uint32_t*, int count) {
    for (int x = 0; x < count; ++x)
        destination[x] ^= kColour;
}

void change_by_row(std::uint32_t* __restrict__ destination, const std::uint32_t* __restrict__ source,
                   int count) {
    for (int x = 0; x < count; ++x)
        destination[x] ^= source[x];
}
