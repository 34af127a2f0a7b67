// SPDX-License-Identifier: MIT
// Clipped rectangles, patterns and lines.
#include "raster/painter.h"

#include "hdr/ks_assert.h"
#include "hdr/ks_math.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace {

constexpr long kLeast = std::numeric_limits<std::int32_t>::min();
constexpr long kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::uint32_t kOpacity = 255;

// Products of three 32-bit coordinates.
__extension__ using wide = __int128;

constexpr bool IsCoordinate(long value) {
    return value >= kLeast && value <= kMost;
}

constexpr wide RoundedUp(wide dividend, wide divisor) {
    return (dividend + divisor - 1) / divisor;
}

// One coordinate of a line's walk: it starts somewhere and changes by one per step.
struct axis {
    long start;
    long step;   // +1 or -1
    long count;  // steps to the end
};

struct interval {
    long first;
    long last;
};

// Returns the steps after which the coordinate lies between low and high.
interval StepsBetween(const axis& a, long low, long high) {
    const interval steps =
        a.step > 0 ? interval{low - a.start, high - a.start} : interval{a.start - high, a.start - low};
    return {MAX(steps.first, 0L), MIN(steps.last, a.count)};
}

// Bresenham's walk from one end of a line to the other. Before step i along the major axis, that axis has
// moved i times, and the minor one floor((2 * minor * i + major) / (2 * major)) times, major and minor being
// the numbers of steps along either.
struct line_walk {
    axis major;
    axis minor;

    wide MinorSteps(wide i) const { return (2 * minor.count * i + major.count) / (2 * wide{major.count}); }
    // Returns the first i with so many minor steps behind it.
    wide FirstWith(wide minor_steps) const {
        return minor_steps <= 0 ? 0 : RoundedUp((2 * minor_steps - 1) * major.count, 2 * wide{minor.count});
    }
    // Returns those i at which the point lies in `area`, whose x are those of the major axis.
    interval Within(const KSRect<long>& area) const {
        const interval along = StepsBetween(major, area.left, area.right);
        const interval across = StepsBetween(minor, area.top, area.bottom);
        if (across.first > across.last)
            return {0, -1};
        const wide end = across.last < minor.count ? FirstWith(across.last + 1) - 1 : major.count;
        return {static_cast<long>(MAX<wide>(along.first, FirstWith(across.first))),
                static_cast<long>(MIN<wide>(along.last, end))};
    }
};

}  // namespace

void ks_scattered_run::Compose() {
    std::uint32_t run[kMost];
    for (std::int32_t i = 0; i < _count; i++)
        run[i] = *_pixels[i];
    _compose(run, _color, kOpacity, _count, 1, 0);
    for (std::int32_t i = 0; i < _count; i++)
        *_pixels[i] = run[i];
    _count = 0;
}

ks_painter::ks_painter(const KSRaster& raster)
    : _frame(raster.HasWords() ? raster._frame : KSRect<long>()),
      _reach(MAX(_frame.left, kLeast), MAX(_frame.top, kLeast), MIN(_frame.right, kMost),
             MIN(_frame.bottom, kMost)),
      _pixels(reinterpret_cast<std::uint32_t*>(raster._data)),
      _words_per_row(raster._bytes_per_row / 4),
      _pattern(raster._pattern),
      _high(raster._high_color),
      _low(raster._low_color),
      _mode(raster._drawing_mode) {
    KS_ASSERT(_mode >= 0 && _mode < kMergeCount);
    _compose_rows = ks_merge::color_rows(_mode);
}

bool ks_painter::Takes(long x1, long y1, long x2, long y2) {
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
    _compose_rows(At(area.left, area.top), _high, kOpacity, static_cast<std::int32_t>(area.PixelWidth()),
                  static_cast<std::int32_t>(area.PixelHeight()), _words_per_row);
}

// Lays the pattern's rows out as pixels and composes those. The array kernels compute what the pixel kernels
// do, but for two modes: Alpha Mask, whose pixel kernel is that of XOR Mask, and Erase.
void ks_painter::FillPattern(const KSRect<long>& area) const {
    constexpr long kRun = 128;  // a multiple of the pattern's period
    if (_mode == kMergeErase) {
        FillPatternByPixels(area);
        return;
    }
    std::uint32_t source[8][kRun];
    // Counted from 0, for the area may end where long does.
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

void ks_painter::Line(long x1, long y1, long x2, long y2) const {
    if (!Takes(x1, y1, x2, y2) || !_reach.IsValid())
        return;
    const axis across{x1, x2 > x1 ? 1 : -1, std::abs(x2 - x1)};
    const axis down{y1, y2 > y1 ? 1 : -1, std::abs(y2 - y1)};
    const bool steep = down.count > across.count;
    const line_walk walk = steep ? line_walk{down, across} : line_walk{across, down};
    const KSRect<long> area =
        steep ? KSRect<long>(_reach.top, _reach.left, _reach.bottom, _reach.right) : _reach;

    const bool whole = Inside(x1, y1) && Inside(x2, y2);
    const interval steps = whole ? interval{0, walk.major.count} : walk.Within(area);
    if (steps.first > steps.last)
        return;
    const auto behind = static_cast<long>(whole ? 0 : walk.MinorSteps(steps.first));
    const long twice_major = 2 * walk.major.count, twice_minor = 2 * walk.minor.count;
    auto error = static_cast<long>(wide{twice_minor} * (steps.first + 1) - walk.major.count -
                                   wide{twice_major} * behind);

    KSPoint<long> major_step(walk.major.step, 0), minor_step(0, walk.minor.step);
    KSPoint<long> at(walk.major.start + walk.major.step * steps.first,
                     walk.minor.start + walk.minor.step * behind);
    if (steep) {
        std::swap(at.x, at.y);
        std::swap(major_step.x, major_step.y);
        std::swap(minor_step.x, minor_step.y);
    }
    const std::ptrdiff_t along = major_step.x + major_step.y * _words_per_row;
    const std::ptrdiff_t aside = minor_step.x + minor_step.y * _words_per_row;
    PaintPixels([&](const auto& put) {
        // Copies, so that the compiler sees that no pixel put changes them.
        std::ptrdiff_t place = PlaceOf(at.x, at.y);
        long x = at.x, y = at.y, left = error;
        for (long i = steps.first; i <= steps.last; i++) {
            put(place, x, y);
            const long turn = -static_cast<long>(left >= 0);  // a mask: a branch would be hard to predict
            place += along + (aside & turn);
            x += major_step.x + (minor_step.x & turn);
            y += major_step.y + (minor_step.y & turn);
            left += twice_minor - (twice_major & turn);
        }
    });
}
