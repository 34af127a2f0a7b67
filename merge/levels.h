// SPDX-License-Identifier: MIT
// The run and array kernels of each instruction set. All sets give the same results.
#pragma once

#include "merge/KSMerge.h"

#include <cstddef>

namespace ks_merge {

// Composes `color` onto `rows` runs of `count` pixels, which start `stride` words apart, as ks_color_func
// would one after another.
using color_rows_func = void (*)(std::uint32_t* dst, std::uint32_t color, std::uint32_t opacity,
                                 std::int32_t count, std::int32_t rows, std::ptrdiff_t stride);

// The kernels of one level, indexed by ks_composition_mode.
struct level_kernels {
    color_rows_func color[kMergeCount];
    ks_array_func array[kMergeCount];
};

// Each in a unit of its own; on other processors than x86-64 there is only the first.
extern const level_kernels kernels_baseline;
extern const level_kernels kernels_avx2;
extern const level_kernels kernels_avx512;

// Returns the kernels of the instruction set in use.
const level_kernels& used_kernels();

}  // namespace ks_merge
