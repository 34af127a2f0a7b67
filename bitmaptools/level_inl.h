// SPDX-License-Identifier: MIT
// The table of one level, with all that it points to.
#pragma once

#include "bitmaptools/noise_inl.h"
#include "bitmaptools/premultiply_inl.h"
#include "bitmaptools/projection_inl.h"
#include "bitmaptools/reduction_inl.h"
#include "bitmaptools/rotation_inl.h"
#include "bitmaptools/scaling_inl.h"
#include "bitmaptools/transform_inl.h"

namespace ks_bitmaptools {
namespace {

constexpr LevelFunctions kLevel = {.scale_plain = ScalePlain,
                                   .scale_bilinear = ScaleBilinear,
                                   .rotate_plain = RotatePlainAny,
                                   .rotate_bilinear = RotateBilinearAny,
                                   .transform_plain = TransformPlain,
                                   .transform_bilinear = TransformBilinear,
                                   .project_plain = ProjectPlain,
                                   .project_bilinear = ProjectBilinear,
                                   .reduce = Reduce,
                                   .premultiply = Premultiply,
                                   .unpremultiply = Unpremultiply,
                                   .cover = Cover,
                                   .slide = Slide,
                                   .find_lonely = FindLonelyAny,
                                   .count_equal = CountEqual,
                                   .sum_bytes = SumBytes,
                                   .sum_halves = SumHalves};

}  // namespace
}  // namespace ks_bitmaptools
