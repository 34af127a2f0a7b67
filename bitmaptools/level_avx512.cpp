// SPDX-License-Identifier: MIT
// The pixel functions compiled for AVX-512.
#include "bitmaptools/level_inl.h"

const ks_bitmaptools::PixelFunctions ks_bitmaptools::functions_avx512 = kPixelFunctions;
