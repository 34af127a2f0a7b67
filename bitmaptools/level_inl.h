// SPDX-License-Identifier: MIT
// The table of one level, with all that it points to.
#pragma once

#include "bitmaptools/noise_inl.h"
#include "bitmaptools/rotation_inl.h"
#include "bitmaptools/scaling_inl.h"
#include "bitmaptools/transform_inl.h"

namespace ks_bitmaptools {
namespace {

constexpr LevelFunctions kLevel = {
    ScalePlain,           ScaleBilinear, RotatePlainAny, RotateBilinearAny, TransformPlainAny,
    TransformBilinearAny, FindLonelyAny, CountEqual,     SumBytes,          SumHalves};

}  // namespace
}  // namespace ks_bitmaptools
