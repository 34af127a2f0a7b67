// SPDX-License-Identifier: MIT
// The kernels for x86-64 processors with AVX2.
#include "merge/kernels.h"

constinit const ks_merge::mode_kernels ks_merge::level_avx2[] = {KS_MERGE_MODES(KS_LEVEL_ROW)};
