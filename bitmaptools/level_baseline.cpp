// SPDX-License-Identifier: MIT
// The pixel functions compiled for what every processor has.
#define NYMBREL_LEVEL baseline
#define NYMBREL_VECTOR_BYTES 16
#include "bitmaptools/level_inl.h"
