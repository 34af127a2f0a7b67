// SPDX-License-Identifier: MIT
// Composes rectangles and pixels onto a raster: what all drawing primitives come down to.
#pragma once

#include "hdr/KSRect.h"
#include "merge/KSMerge.h"
#include "raster/KSRaster.h"

#include <cstdint>

// Holds what a primitive needs of the raster's drawing state, for the time of one call.
class ks_painter {
public:
    // Asserts that the raster's drawing mode is one of the modes.
    explicit ks_painter(const KSRaster& raster);

    // The part of the frame that shapes can reach whose coordinates are limited to 32 bits; it may be
    // invalid.
    const KSRect<long>& Reach() const { return _reach; }
    // Returns whether two corners have coordinates that such shapes take.
    static bool Takes(long x1, long y1, long x2, long y2);

    // Returns whether the order in which pixels are painted shows.
    bool NeedsOrder() const { return _mode == kMergeDissolve; }
    // Returns whether to paint a pixel a second time changes nothing.
    bool PaintsOnce() const;

    // Composes the rectangle, as far as it lies in the frame, row by row.
    void Fill(long left, long top, long right, long bottom) const;
    // Composes the pixel if it lies in the frame.
    void Plot(long x, long y) const;
    // Composes the pixels of a line that is neither upright nor level.
    void Line(long x1, long y1, long x2, long y2) const;

private:
    std::uint32_t* At(long x, long y) const;
    bool Inside(long x, long y) const;
    std::uint32_t ColorAt(long x, long y) const;
    std::uint32_t Composed(std::uint32_t pixel, std::uint32_t color) const;
    void FillPattern(const KSRect<long>& area) const;
    void FillPatternByPixels(const KSRect<long>& area) const;

    KSRect<long> _frame;
    KSRect<long> _reach;
    std::uint32_t* _pixels;
    long _words_per_row;
    const unsigned char* _pattern;
    std::uint32_t _high;
    std::uint32_t _low;
    ks_composition_mode _mode;
};

inline std::uint32_t* ks_painter::At(long x, long y) const {
    return _pixels + (y - _frame.top) * _words_per_row + (x - _frame.left);
}

inline bool ks_painter::Inside(long x, long y) const {
    return x >= _frame.left && x <= _frame.right && y >= _frame.top && y <= _frame.bottom;
}

inline std::uint32_t ks_painter::ColorAt(long x, long y) const {
    return _pattern == nullptr || (_pattern[y & 7] >> (x & 7) & 1) ? _high : _low;
}

inline std::uint32_t ks_painter::Composed(std::uint32_t pixel, std::uint32_t color) const {
    return KSMerge::hash_pixel_func[_mode](pixel, color, 255);
}

inline void ks_painter::Plot(long x, long y) const {
    if (Inside(x, y))
        *At(x, y) = Composed(*At(x, y), ColorAt(x, y));
}
