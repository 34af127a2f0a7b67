// SPDX-License-Identifier: MIT
// Scaling, rotation and transformation of pixel arrays.
#include "bitmaptools/KSBitmapTools.h"

#include "bitmaptools/levels.h"
#include "bitmaptools/turn.h"
#include "simd/level.h"

#include <cmath>
#include <cstddef>
#include <limits>

static_assert(sizeof(long) == 8, "coordinates are longs, and their arithmetic takes 64 bits");

namespace ks_bitmaptools {

using namespace ks_simd;

const LevelFunctions& ActiveFunctions() {
#if defined(__x86_64__)
    switch (ActiveLevel()) {
    case Level::kAvx512:
        return level_avx512;
    case Level::kAvx2:
        return level_avx2;
    case Level::kBaseline:
        break;
    }
#endif
    return level_baseline;
}

}  // namespace ks_bitmaptools

using namespace ks_bitmaptools;

namespace {

constexpr std::int64_t kHalfPixelBack = -2047;
// Rotations and transforms work in a plane shifted by this much, where positions are positive.
constexpr std::int64_t kPlaneShift = 65536;

using AxisFunction = void (*)(const SourcePixels&, const DestinationPixels&, const Axis& x, const Axis& y);

void Scale(const SourcePixels& source, const DestinationPixels& destination, std::int64_t start,
           AxisFunction scale) {
    if (source.width <= 0 || source.height <= 0 || destination.width <= 0 || destination.height <= 0)
        return;
    scale(source, destination, {start, source.width * kOne / destination.width, 0},
          {start, 0, source.height * kOne / destination.height});
}

bool FitsPlane(const KSRect<long>& rect) {
    constexpr long least = std::numeric_limits<std::int32_t>::min();
    constexpr long most = std::numeric_limits<std::int32_t>::max();
    return rect.IsValid() && rect.left >= least && rect.top >= least && rect.right <= most &&
           rect.bottom <= most;
}

bool FitsPlane(KSPoint<double> point) {
    constexpr double limit = 0x1p31;
    return std::fabs(point.x) <= limit && std::fabs(point.y) <= limit;
}

KSRect<long> Shifted(const KSRect<long>& rect) {
    return {rect.left + kPlaneShift, rect.top + kPlaneShift, rect.right + kPlaneShift,
            rect.bottom + kPlaneShift};
}

KSPoint<double> Shifted(KSPoint<double> point) {
    return {point.x + kPlaneShift, point.y + kPlaneShift};
}

KSPoint<std::int64_t> FixedPoint(KSPoint<double> point) {
    return {static_cast<std::int64_t>(std::floor(point.x * kOne)),
            static_cast<std::int64_t>(std::floor(point.y * kOne))};
}

void Rotate(KSRect<long> source_rect, KSRect<long> destination_rect, KSPoint<double> center, double angle,
            const std::uint32_t* source, std::uint32_t* destination, std::uint32_t source_row_length,
            std::uint32_t destination_row_length, AxisFunction rotate) {
    if (!FitsPlane(source_rect) || !FitsPlane(destination_rect) || !FitsPlane(center) ||
        !std::isfinite(angle))
        return;
    source_rect = Shifted(source_rect);
    destination_rect = Shifted(destination_rect);
    center = Shifted(center);
    const ks_turn turn = ks_turn::By(angle);
    const auto rotated = [&](long x, long y, const ks_turn& by) {
        const double dx = static_cast<double>(x) - center.x, dy = static_cast<double>(y) - center.y;
        return KSPoint<double>(center.x + dx * by.cosine + dy * by.sine,
                               center.y + dy * by.cosine - dx * by.sine);
    };
    const long width = source_rect.PixelWidth(), height = source_rect.PixelHeight();
    const auto top_left = FixedPoint(rotated(source_rect.left, source_rect.top, turn));
    const auto top_right = FixedPoint(rotated(source_rect.right + 1, source_rect.top, turn));
    const auto bottom_left = FixedPoint(rotated(source_rect.left, source_rect.bottom + 1, turn));
    const KSPoint<double> first = rotated(destination_rect.left, destination_rect.top, turn.Back());
    const Axis x = {static_cast<std::int64_t>(first.x * kOne) - source_rect.left * kOne,
                    (top_right.x - top_left.x) / width, (top_left.x - bottom_left.x) / height};
    const Axis y = {static_cast<std::int64_t>(first.y * kOne) - source_rect.top * kOne,
                    (top_left.y - top_right.y) / width, (bottom_left.y - top_left.y) / height};
    rotate(
        {source, width, height, source_row_length},
        {destination, destination_rect.PixelWidth(), destination_rect.PixelHeight(), destination_row_length},
        x, y);
}

// The point with the fractions t (left to right) and v (bottom to top) of the source goes to
// p3 + t b + v c + t v a, where a = p1 - p2 + p3 - p0, b = p2 - p3 and c = p0 - p3. Eliminating v leaves a
// quadratic in t whose factor of t squared is the curvature.
InverseMap Invert(KSPoint<double> p0, KSPoint<double> p1, KSPoint<double> p2, KSPoint<double> p3) {
    const bool parallel_x = std::floor(p1.x - p0.x) == std::floor(p2.x - p3.x);
    const bool parallel_y = std::floor(p2.y - p1.y) == std::floor(p3.y - p0.y);
    if (parallel_x)
        p0.x += 0.1;
    if (parallel_y)
        p0.y += 0.1;
    InverseMap map = {};
    map.ax = p1.x - p2.x + p3.x - p0.x;
    map.ay = p1.y - p2.y + p3.y - p0.y;
    map.bx = p2.x - p3.x;
    map.by = p2.y - p3.y;
    map.cx = p0.x - p3.x;
    map.cy = p0.y - p3.y;
    map.x3 = p3.x;
    map.y3 = p3.y;
    map.curvature = map.ax * map.by - map.bx * map.ay;
    return map;
}

// The corners are those of the quadrilateral: top left, top right, bottom right and bottom left.
void Transform(const KSRect<long>& source_rect, const KSPoint<double> (&corners)[4], double least,
               double most, const KSRect<long>& destination_rect, const std::uint32_t* source,
               std::uint32_t* destination, std::uint32_t source_row_length,
               std::uint32_t destination_row_length,
               void (*transform)(const SourcePixels&, const DestinationPixels&, const InverseMap&)) {
    InverseMap map =
        Invert(Shifted(corners[0]), Shifted(corners[1]), Shifted(corners[2]), Shifted(corners[3]));
    if (!FitsPlane(source_rect) || !FitsPlane(destination_rect) || map.curvature == 0)
        return;
    map.left = static_cast<double>(destination_rect.left + kPlaneShift);
    map.top = static_cast<double>(destination_rect.top + kPlaneShift);
    map.least = least;
    map.most = most;
    transform(
        {source, source_rect.PixelWidth(), source_rect.PixelHeight(), source_row_length},
        {destination, destination_rect.PixelWidth(), destination_rect.PixelHeight(), destination_row_length},
        map);
}

}  // namespace

void KSBitmapTools::ScalePlain(std::int32_t source_width, std::int32_t source_height,
                               std::int32_t destination_width, std::int32_t destination_height,
                               const std::uint32_t* source, std::uint32_t* destination,
                               std::int32_t source_row_length, std::int32_t destination_row_length) {
    Scale({source, source_width, source_height, source_row_length},
          {destination, destination_width, destination_height, destination_row_length}, 0,
          ActiveFunctions().scale_plain);
}

void KSBitmapTools::ScaleBiLin(std::int32_t source_width, std::int32_t source_height,
                               std::int32_t destination_width, std::int32_t destination_height,
                               const std::uint32_t* source, std::uint32_t* destination,
                               std::int32_t source_row_length, std::int32_t destination_row_length) {
    Scale({source, source_width, source_height, source_row_length},
          {destination, destination_width, destination_height, destination_row_length}, kHalfPixelBack,
          ActiveFunctions().scale_bilinear);
}

void KSBitmapTools::RotatePlain(KSRect<long> source_rect, KSRect<long> destination_rect,
                                KSPoint<double> center, double angle, const std::uint32_t* source,
                                std::uint32_t* destination, std::uint32_t source_row_length,
                                std::uint32_t destination_row_length) {
    Rotate(source_rect, destination_rect, center, angle, source, destination, source_row_length,
           destination_row_length, ActiveFunctions().rotate_plain);
}

void KSBitmapTools::RotateBiLin(KSRect<long> source_rect, KSRect<long> destination_rect,
                                KSPoint<double> center, double angle, const std::uint32_t* source,
                                std::uint32_t* destination, std::uint32_t source_row_length,
                                std::uint32_t destination_row_length) {
    Rotate(source_rect, destination_rect, center, angle, source, destination, source_row_length,
           destination_row_length, ActiveFunctions().rotate_bilinear);
}

void KSBitmapTools::TransformPlain(KSRect<long> source_rect, KSPoint<double> top_left,
                                   KSPoint<double> top_right, KSPoint<double> bottom_right,
                                   KSPoint<double> bottom_left, KSRect<long> destination_rect,
                                   const std::uint32_t* source, std::uint32_t* destination,
                                   std::uint32_t source_row_length, std::uint32_t destination_row_length) {
    Transform(source_rect, {top_left, top_right, bottom_right, bottom_left}, 0, 1, destination_rect, source,
              destination, source_row_length, destination_row_length, ActiveFunctions().transform_plain);
}

void KSBitmapTools::TransformBiLin(KSRect<long> source_rect, KSPoint<double> top_left,
                                   KSPoint<double> top_right, KSPoint<double> bottom_right,
                                   KSPoint<double> bottom_left, KSRect<long> destination_rect,
                                   const std::uint32_t* source, std::uint32_t* destination,
                                   std::uint32_t source_row_length, std::uint32_t destination_row_length) {
    Transform(source_rect, {top_left, top_right, bottom_right, bottom_left}, -0.1, 1.1, destination_rect,
              source, destination, source_row_length, destination_row_length,
              ActiveFunctions().transform_bilinear);
}
