// SPDX-License-Identifier: MIT
// The table of pixel functions of one instruction set, with all that it points to.
//
// The including unit defines NYMBREL_LEVEL, the namespace to fill, and NYMBREL_VECTOR_BYTES, the width of its
// vectors. Everything but the table is local to the unit.
#pragma once

#include "bitmaptools/noise_inl.h"
#include "bitmaptools/sampling_inl.h"

namespace NYMBREL_LEVEL {

const PixelFunctions kPixelFunctions = {ScalePlain,        ScaleBilinear,     RotatePlainAny,
                                        RotateBilinearAny, TransformPlainAny, TransformBilinearAny,
                                        MarkLonelyAny,     CountEqual,        SumCounts};

}  // namespace NYMBREL_LEVEL
