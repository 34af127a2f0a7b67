// SPDX-License-Identifier: MIT
// The pixel functions compiled for AVX-512.
#define NYMBREL_LEVEL avx512
#define NYMBREL_VECTOR_BYTES 64
#include "bitmaptools/level_inl.h"
