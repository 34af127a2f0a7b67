// SPDX-License-Identifier: MIT
// The pixel functions compiled for AVX2.
#define NYMBREL_LEVEL avx2
#define NYMBREL_VECTOR_BYTES 32
#include "bitmaptools/level_inl.h"
