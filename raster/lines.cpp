// SPDX-License-Identifier: MIT
// Lines.
#include "hdr/ks_math.h"
#include "raster/KSRaster.h"
#include "raster/painter.h"

#include <cstddef>
#include <cstdlib>
#include <utility>

namespace {

// Products of three 32-bit coordinates.
__extension__ using wide = __int128;

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
    // Returns the first i before which the minor axis has moved so many times.
    wide FirstWith(wide minor_steps) const {
        return minor_steps <= 0 ? 0 : RoundedUp((2 * minor_steps - 1) * major.count, 2 * wide{minor.count});
    }
    // Returns the steps at which the point lies in `area`, whose x is along the major axis.
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

// Draws a line that is neither upright nor level.
void DrawLine(const ks_painter& painter, long x1, long y1, long x2, long y2) {
    const KSRect<long>& frame = painter.ShapeFrame();
    if (!painter.InShapeRange(x1, y1, x2, y2) || !frame.IsValid())
        return;
    const axis across{x1, x2 > x1 ? 1 : -1, std::abs(x2 - x1)};
    const axis down{y1, y2 > y1 ? 1 : -1, std::abs(y2 - y1)};
    const bool steep = down.count > across.count;
    const line_walk walk = steep ? line_walk{down, across} : line_walk{across, down};
    const KSRect<long> area = steep ? KSRect<long>(frame.top, frame.left, frame.bottom, frame.right) : frame;

    const bool whole = painter.Inside(x1, y1) && painter.Inside(x2, y2);
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
    const std::ptrdiff_t first = painter.PlaceOf(at.x, at.y);
    const std::ptrdiff_t along = painter.PlaceOf(at.x + major_step.x, at.y + major_step.y) - first;
    const std::ptrdiff_t aside = painter.PlaceOf(at.x + minor_step.x, at.y + minor_step.y) - first;
    painter.PaintPixels([&](const auto& put) {
        // Copies, so that the compiler sees that no pixel put changes them.
        std::ptrdiff_t place = first;
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

}  // namespace

void KSRaster::StrokeLine(long x1, long y1, long x2, long y2) {
    const ks_painter painter(*this);
    if (x1 == x2 || y1 == y2) {
        NORM(x1, x2);
        NORM(y1, y2);
        painter.Fill(x1, y1, x2, y2);
    } else {
        DrawLine(painter, x1, y1, x2, y2);
    }
}
