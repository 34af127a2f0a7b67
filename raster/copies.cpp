// SPDX-License-Identifier: MIT
// Scaled, transformed and rotated copies of a raster.
#include "bitmaptools/KSBitmapTools.h"
#include "bitmaptools/ks_resample.h"
#include "bitmaptools/turn.h"
#include "hdr/ks_math.h"
#include "raster/KSRaster.h"
#include "raster/raster_lock.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

namespace {

constexpr long kMargin = 16;  // around an image that does not fill its frame

// Returns a finite number without its fraction. Throws std::bad_alloc if no frame can reach it.
long Truncated(double value) {
    constexpr double kFarthest = 0x1p62;
    if (std::fabs(value) > kFarthest)
        throw std::bad_alloc();
    return static_cast<long>(value);
}

long Rounded(double value) {
    return Truncated(std::floor(value + 0.5));
}

bool IsFinite(const KSPoint<double>& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// Returns the bounding box of four points, each coordinate truncated, with the margin around it.
KSRect<long> BoundsOf(const KSPoint<double> (&points)[4]) {
    const auto [left, right] = std::minmax({points[0].x, points[1].x, points[2].x, points[3].x});
    const auto [top, bottom] = std::minmax({points[0].y, points[1].y, points[2].y, points[3].y});
    return {Truncated(left) - kMargin, Truncated(top) - kMargin, Truncated(right) + kMargin,
            Truncated(bottom) + kMargin};
}

// Returns the bounding box of a rotated frame, with the margin around it.
KSRect<long> RotatedBounds(const KSRect<long>& frame, KSPoint<double> center, double angle) {
    // A centre farther away than this moves everything out of sight.
    constexpr double kFarthest = 0x1p40;
    const double x = std::trunc(std::clamp(center.x, -kFarthest, kFarthest));
    const double y = std::trunc(std::clamp(center.y, -kFarthest, kFarthest));
    const ks_turn turn = ks_turn::By(angle);
    const auto rotated = [&](long corner_x, long corner_y) {
        const double dx = static_cast<double>(corner_x) - x, dy = static_cast<double>(corner_y) - y;
        return KSPoint<double>(x + dx * turn.cosine + dy * turn.sine, y + dy * turn.cosine - dx * turn.sine);
    };
    return BoundsOf({rotated(frame.left, frame.top), rotated(frame.right, frame.top),
                     rotated(frame.right, frame.bottom), rotated(frame.left, frame.bottom)});
}

std::uint32_t* Words(const KSRaster& raster) {
    return static_cast<std::uint32_t*>(raster.Bits());
}

std::int32_t RowLength(const KSRaster& raster) {
    return raster.BytesPerRow() / 4;
}

// Returns a raster without the drawing state of `source`.
std::unique_ptr<KSRaster> NewLike(const KSRaster& source, KSRect<long> frame, ks_raster_native native) {
    return std::make_unique<KSRaster>(frame, source.Name(), source.ColorSpace(), native);
}

void Resize(const KSRaster& source, KSRaster& result, bool bilinear) {
    const ks_raster_lock lock(result);
    if (!source.Bits())
        return;
    const long width = result.Width(), height = result.Height();
    if (width == source.Width() && height == source.Height()) {
        for (long y = 0; y < height; y++)
            std::memcpy(Words(result) + y * RowLength(result), Words(source) + y * RowLength(source),
                        static_cast<std::size_t>(width) * 4);
        return;
    }
    const auto scale = bilinear ? KSBitmapTools::ScaleBiLin : KSBitmapTools::ScalePlain;
    scale(static_cast<std::int32_t>(source.Width()), static_cast<std::int32_t>(source.Height()),
          static_cast<std::int32_t>(width), static_cast<std::int32_t>(height), Words(source), Words(result),
          RowLength(source), RowLength(result));
}

void Map(const KSRaster& source, KSRaster& result, const KSPoint<double> (&corners)[4], bool bilinear) {
    const ks_raster_lock lock(result);
    if (!source.Bits())
        return;
    const auto transform = bilinear ? KSBitmapTools::TransformBiLin : KSBitmapTools::TransformPlain;
    transform(source.Frame(), corners[0], corners[1], corners[2], corners[3], result.Frame(), Words(source),
              Words(result), static_cast<std::uint32_t>(RowLength(source)),
              static_cast<std::uint32_t>(RowLength(result)));
}

void Rotate(const KSRaster& source, KSRaster& result, KSPoint<double> center, double angle, bool bilinear) {
    const ks_raster_lock lock(result);
    const auto rotate = bilinear ? KSBitmapTools::RotateBiLin : KSBitmapTools::RotatePlain;
    rotate(source.Frame(), result.Frame(), center, angle, Words(source), Words(result),
           static_cast<std::uint32_t>(RowLength(source)), static_cast<std::uint32_t>(RowLength(result)));
}

}  // namespace

KSRaster* KSRaster::CreateScaled(KSRect<long> frame, bool bilinear, ks_raster_native native) const {
    if (!frame.IsValid() || _bytes_per_pixel != 4)
        return nullptr;
    auto result = NewLike(*this, frame, native);
    Resize(*this, *result, bilinear);
    return result.release();
}

KSRaster* KSRaster::CreateScaled(KSPoint<double> p1, KSPoint<double> p2, KSPoint<double> p3,
                                 KSPoint<double> p4, bool bilinear, double angle,
                                 KSPoint<double> center) const {
    const KSPoint<double> corners[] = {p1, p2, p3, p4};
    if (!std::all_of(corners, corners + 4, IsFinite) || !IsFinite(center) || !std::isfinite(angle) ||
        _bytes_per_pixel != 4)
        return nullptr;
    std::unique_ptr<KSRaster> result;
    if (p4.x == p1.x && p3.x == p2.x && p2.y == p1.y && p4.y == p3.y) {
        const KSRect<long> frame(Rounded(p1.x), Rounded(p1.y), Rounded(p3.x), Rounded(p3.y));
        if (!frame.IsValid())
            return nullptr;
        result = NewLike(*this, frame, kRasterInMemory);
        Resize(*this, *result, bilinear);
    } else {
        result = NewLike(*this, BoundsOf(corners), kRasterInMemory);
        Map(*this, *result, corners, bilinear);
    }
    if (angle == 0.0)
        return result.release();
    auto rotated = NewLike(*this, RotatedBounds(result->Frame(), center, angle), kRasterInMemory);
    Rotate(*result, *rotated, center, angle, bilinear);
    return rotated.release();
}

std::unique_ptr<KSRaster> KSRaster::Reduced(KSRect<long> frame) const {
    if (!frame.IsValid() || _bytes_per_pixel != 4)
        return nullptr;
    auto result = NewLike(*this, frame, kRasterInMemory);
    ks_reduce(*this, frame, *result);
    return result;
}

KSRect<long> KSRaster::FittedInto(KSRect<long> box) const {
    const double width = static_cast<double>(Width()), height = static_cast<double>(Height());
    const long box_width = box.PixelWidth(), box_height = box.PixelHeight();
    if (!_frame.IsValid() || !box.IsValid() || Width() <= 0 || Height() <= 0 || box_width <= 0 ||
        box_height <= 0)
        return {};
    const double factor =
        std::min({1.0, static_cast<double>(box_width) / width, static_cast<double>(box_height) / height});
    const auto side = [factor](double length, long most) {
        return std::clamp(static_cast<long>(std::floor(length * factor + 0.5)), 1L, most);
    };
    const long w = side(width, std::min(box_width, Width())),
               h = side(height, std::min(box_height, Height()));
    const long left = box.left + (box_width - w) / 2, top = box.top + (box_height - h) / 2;
    return {left, top, left + w - 1, top + h - 1};
}
