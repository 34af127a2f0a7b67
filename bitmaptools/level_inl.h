// SPDX-License-Identifier: MIT
// The table of pixel functions of one instruction set, with all that it points to.
#pragma once

#include "bitmaptools/noise_inl.h"
#include "bitmaptools/rotation_inl.h"
#include "bitmaptools/scaling_inl.h"
#include "bitmaptools/transform_inl.h"

namespace ks_bitmaptools {
namespace {

constexpr PixelFunctions kPixelFunctions = {
    ScalePlain,           ScaleBilinear, RotatePlainAny, RotateBilinearAny, TransformPlainAny,
    TransformBilinearAny, FindLonelyAny, CountEqual,     SumBytes,          SumHalves};

}  // namespace
}  // namespace ks_bitmaptools
