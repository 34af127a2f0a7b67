// SPDX-License-Identifier: MIT
// The pixel functions for every processor.
#include "bitmaptools/level_inl.h"

const ks_bitmaptools::LevelFunctions ks_bitmaptools::level_baseline = kLevel;
