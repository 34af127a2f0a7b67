// SPDX-License-Identifier: MIT
// The kernels for x86-64 processors with AVX-512 (F, BW, VL and DQ).
#include "merge/kernels.h"

const ks_merge::level_kernels ks_merge::kernels_avx512 = kKernels;
