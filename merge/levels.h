// SPDX-License-Identifier: MIT
// The kernels of each level.
//
// Holds plain data only, so that the units of the levels may include it: see nymbrel_level in
// cmake/NymbrelTargets.cmake.
#pragma once

#include "merge/rows.h"

namespace ks_merge {

struct mode_kernels {
    color_rows_func color;
    ks_array_func array;
};

// Indexed by ks_composition_mode, each in a unit of its own. Only x86-64 has the last two.
extern const mode_kernels level_baseline[kMergeCount];
extern const mode_kernels level_avx2[kMergeCount];
extern const mode_kernels level_avx512[kMergeCount];

}  // namespace ks_merge
