// SPDX-License-Identifier: MIT
// Composes a colour onto many rows with one call: what the raster asks of the modes beside their tables.
#pragma once

#include "merge/KSMerge.h"

#include <cstddef>

namespace ks_merge {

// Composes `color` onto `rows` runs of `count` pixels, which start `stride` words apart, as ks_color_func
// would one after another.
using color_rows_func = void (*)(std::uint32_t* dst, std::uint32_t color, std::uint32_t opacity,
                                 std::int32_t count, std::int32_t rows, std::ptrdiff_t stride);

// Returns the mode's function for the level in use.
color_rows_func color_rows(ks_composition_mode mode);

}  // namespace ks_merge
