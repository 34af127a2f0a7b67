// SPDX-License-Identifier: MIT
// The kernels for the processor that the whole library is compiled for, and those of single pixels, which
// gain nothing from wider vectors.
#include "merge/kernels.h"

using namespace ks_merge;

#define KS_PIXEL(mode, suffix, label, destructive, pixel_mode, run_mode, array_mode) pixel_kernel<pixel_mode>,

const ks_merge::level_kernels ks_merge::kernels_baseline = kKernels;
constinit const ks_pixel_func KSMerge::hash_pixel_func[] = {KS_MERGE_MODES(KS_PIXEL)};
