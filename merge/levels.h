// SPDX-License-Identifier: MIT
// The run and array kernels of each instruction set, and the choice among them. All sets give the same
// results.
#pragma once

#include "merge/KSMerge.h"

#include <cstddef>

namespace ks_merge {

// The instruction sets that the kernels are compiled for, each including those before it.
enum class level { baseline, avx2, avx512 };

inline constexpr level kLevels[] = {level::baseline, level::avx2, level::avx512};

// Composes `color` onto `rows` runs of `count` pixels, which start `stride` words apart, as ks_color_func
// would one after another.
using color_rows_func = void (*)(std::uint32_t* dst, std::uint32_t color, std::uint32_t opacity,
                                 std::int32_t count, std::int32_t rows, std::ptrdiff_t stride);

// The kernels of one level, indexed by ks_composition_mode.
struct level_kernels {
    color_rows_func color[kMergeCount];
    ks_array_func array[kMergeCount];
};

extern const level_kernels kernels_baseline;
extern const level_kernels kernels_avx2;
extern const level_kernels kernels_avx512;

// Returns the kernels of the level in use.
const level_kernels& used_kernels();

// Returns the name of a level: "baseline", "avx2" or "avx512".
const char* level_name(level);

// Returns the highest level that this processor can run.
level best_level();

// Makes the tables' run and array kernels those of `wanted`, or of the best level if that is lower; returns
// the level now in use. For tests and benchmarks: no kernel may be running meanwhile.
level use_level(level wanted);

}  // namespace ks_merge
