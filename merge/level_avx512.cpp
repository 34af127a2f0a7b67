// SPDX-License-Identifier: MIT
// The kernels for x86-64 processors with AVX-512 (F, BW, VL and DQ).
#include "merge/kernels.h"

constinit const ks_merge::mode_kernels ks_merge::level_avx512[] = {KS_MERGE_MODES(KS_LEVEL_ROW)};
