// SPDX-License-Identifier: MIT
// The kernels for every processor, and those of single pixels, which gain nothing from wider vectors.
#include "merge/kernels.h"

using namespace ks_merge;

#define KS_PIXEL_ROW(mode, label, destructive, pixel_mode, run_mode, array_mode) pixel_kernel<pixel_mode>,

constinit const mode_kernels ks_merge::level_baseline[] = {KS_MERGE_MODES(KS_LEVEL_ROW)};
constinit const ks_pixel_func KSMerge::hash_pixel_func[] = {KS_MERGE_MODES(KS_PIXEL_ROW)};
