// SPDX-License-Identifier: MIT
// The pixel functions compiled for what every processor has.
#include "bitmaptools/level_inl.h"

const ks_bitmaptools::PixelFunctions ks_bitmaptools::functions_baseline = kPixelFunctions;
