// SPDX-License-Identifier: MIT
// The kernels for x86-64 processors with AVX2.
#include "merge/kernels.h"

const ks_merge::level_kernels ks_merge::kernels_avx2 = kKernels;
