// SPDX-License-Identifier: MIT
// Clipped rectangles and patterns.
#include "raster/painter.h"

#include "hdr/ks_assert.h"
#include "hdr/ks_math.h"

#include <limits>

namespace {

constexpr long kLeast = std::numeric_limits<std::int32_t>::min();
constexpr long kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::uint32_t kOpacity = 255;

constexpr bool IsCoordinate(long value) {
    return value >= kLeast && value <= kMost;
}

}  // namespace

void ks_scattered_run::Compose() {
    std::uint32_t run[kBatch];
    for (std::int32_t i = 0; i < _count; i++)
        run[i] = *_pixels[i];
    _compose(run, _color, kOpacity, _count, 1, 0);
    for (std::int32_t i = 0; i < _count; i++)
        *_pixels[i] = run[i];
    _count = 0;
}

ks_painter::ks_painter(const KSRaster& raster)
    : _frame(raster.Bits() && raster.BytesPerPixel() == 4 ? raster.Frame() : KSRect<long>()),
      _shape_frame(MAX(_frame.left, kLeast), MAX(_frame.top, kLeast), MIN(_frame.right, kMost),
                   MIN(_frame.bottom, kMost)),
      _pixels(static_cast<std::uint32_t*>(raster.Bits())),
      _words_per_row(raster.BytesPerRow() / 4),
      _pattern(raster._pattern),
      _high(raster._high_color),
      _low(raster._low_color),
      _mode(raster._drawing_mode) {
    KS_ASSERT(_mode >= 0 && _mode < kMergeCount);
    _compose_rows = ks_merge::color_rows(_mode);
}

bool ks_painter::InShapeRange(long x1, long y1, long x2, long y2) {
    return IsCoordinate(x1) && IsCoordinate(y1) && IsCoordinate(x2) && IsCoordinate(y2);
}

bool ks_painter::PaintsOnce() const {
    const auto opaque = [](std::uint32_t color) { return color >> 24 == 255; };
    switch (_mode) {
    case kMergeCopy:
    case kMergeOver:
        return true;
    case kMergeNormal:
    case kMergeFilter:
    case kMergeOverlay:
        return opaque(_high) && (_pattern == nullptr || opaque(_low));
    default:
        return false;
    }
}

bool ks_painter::IgnoresDestination() const {
    return _pattern == nullptr && PaintsOnce() && (_mode != kMergeOver || _high >> 24 != 0);
}

void ks_painter::Fill(long left, long top, long right, long bottom) const {
    const KSRect<long> area(MAX(left, _frame.left), MAX(top, _frame.top), MIN(right, _frame.right),
                            MIN(bottom, _frame.bottom));
    if (!area.IsValid())
        return;
    if (_pattern) {
        FillPattern(area);
        return;
    }
    if (area.left == area.right && !IgnoresDestination()) {
        ks_scattered_run run(_compose_rows, _high);
        for (long j = 0; j < area.PixelHeight(); j++)
            run.Add(At(area.left, area.top + j));
        return;
    }
    _compose_rows(At(area.left, area.top), _high, kOpacity, static_cast<std::int32_t>(area.PixelWidth()),
                  static_cast<std::int32_t>(area.PixelHeight()), _words_per_row);
}

// Lays out the pattern's rows as pixels and composes those. The array kernels compute what the pixel kernels
// do for all modes but two: Alpha Mask, whose pixel kernel is that of XOR Mask, and Erase.
void ks_painter::FillPattern(const KSRect<long>& area) const {
    constexpr long kRun = 128;  // a multiple of the pattern's period
    if (_mode == kMergeErase) {
        FillPatternByPixels(area);
        return;
    }
    std::uint32_t source[8][kRun];
    // Counts from 0, because the area may end where long does.
    const long width = area.PixelWidth(), height = area.PixelHeight(), run = MIN(width, kRun);
    for (long j = 0; j < MIN(height, 8L); j++)
        for (long i = 0; i < run; i++)
            source[j][i] = ColorAt(area.left + i, area.top + j);

    const ks_array_func compose = KSMerge::hash_array_func[_mode == kMergeAlphaMask ? kMergeXorMask : _mode];
    for (long j = 0; j < height; j++) {
        std::uint32_t* row = At(area.left, area.top + j);
        for (long done = 0; done < width; done += kRun)
            compose(row + done, source[j & 7], kOpacity, static_cast<std::int32_t>(MIN(width - done, kRun)));
    }
}

void ks_painter::FillPatternByPixels(const KSRect<long>& area) const {
    const long width = area.PixelWidth(), height = area.PixelHeight();
    for (long j = 0; j < height; j++) {
        std::uint32_t* pixel = At(area.left, area.top + j);
        for (long i = 0; i < width; i++, pixel++)
            *pixel = Composed(*pixel, ColorAt(area.left + i, area.top + j));
    }
}
