// SPDX-License-Identifier: MIT
// The pixel functions for x86-64 processors with AVX-512 (F, BW, VL and DQ).
#include "bitmaptools/level_inl.h"

const ks_bitmaptools::LevelFunctions ks_bitmaptools::level_avx512 = kLevel;
