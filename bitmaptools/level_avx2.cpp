// SPDX-License-Identifier: MIT
// The pixel functions for x86-64 processors with AVX2.
#include "bitmaptools/level_inl.h"

const ks_bitmaptools::LevelFunctions ks_bitmaptools::level_avx2 = kLevel;
