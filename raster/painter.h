// SPDX-License-Identifier: MIT
// Composes rectangles and pixels onto a raster. All drawing primitives use it.
#pragma once

#include "hdr/KSRect.h"
#include "merge/KSMerge.h"
#include "merge/rows.h"
#include "raster/KSRaster.h"

#include <cstddef>
#include <cstdint>

// Gathers pixels from different places and composes them as one run of a colour.
class ks_scattered_run {
public:
    ks_scattered_run(ks_merge::color_rows_func compose, std::uint32_t color)
        : _compose(compose), _color(color) {}
    ks_scattered_run(const ks_scattered_run&) = delete;
    ks_scattered_run& operator=(const ks_scattered_run&) = delete;
    ~ks_scattered_run() { Compose(); }

    void Add(std::uint32_t* pixel) {
        if (_count == kBatch)
            Compose();
        _pixels[_count++] = pixel;
    }

private:
    static constexpr std::int32_t kBatch = 64;

    void Compose();

    ks_merge::color_rows_func _compose;
    std::uint32_t _color;
    std::int32_t _count = 0;
    std::uint32_t* _pixels[kBatch];
};

// Holds what a primitive needs of the raster and its drawing state during one call.
class ks_painter {
public:
    // Asserts that the raster's drawing mode is one of the modes.
    explicit ks_painter(const KSRaster& raster);

    // Returns the part of the frame within 32-bit coordinates, to which all shapes but rectangles are
    // limited. It may be invalid.
    const KSRect<long>& ShapeFrame() const { return _shape_frame; }
    // Returns whether two points have coordinates that such shapes can have.
    static bool InShapeRange(long x1, long y1, long x2, long y2);

    // Returns whether the order in which pixels are painted shows.
    bool NeedsOrder() const { return _mode == kMergeDissolve; }
    // Returns whether painting a pixel a second time changes nothing.
    bool PaintsOnce() const;

    // Returns whether the pixel lies in the frame.
    bool Inside(long x, long y) const {
        return x >= _frame.left && x <= _frame.right && y >= _frame.top && y <= _frame.bottom;
    }
    // Returns a pixel's place among those of the frame: row by row.
    std::ptrdiff_t PlaceOf(long x, long y) const {
        return (y - _frame.top) * _words_per_row + (x - _frame.left);
    }

    // Composes the part of the rectangle that lies in the frame, row by row.
    void Fill(long left, long top, long right, long bottom) const;
    // Composes the pixel if it lies in the frame.
    void Plot(long x, long y) const;

    // Calls `paint(put)`, where `put(place, x, y)` composes the pixel (x, y) of the frame. No pixel may be
    // put twice. All are composed when this returns, but not always at once.
    template <class Paint> void PaintPixels(const Paint& paint) const;

private:
    std::uint32_t* At(long x, long y) const { return _pixels + PlaceOf(x, y); }
    bool IgnoresDestination() const;
    std::uint32_t ColorAt(long x, long y) const;
    std::uint32_t Composed(std::uint32_t pixel, std::uint32_t color) const;
    void FillPattern(const KSRect<long>& area) const;
    void FillPatternByPixels(const KSRect<long>& area) const;

    KSRect<long> _frame;
    KSRect<long> _shape_frame;
    std::uint32_t* _pixels;
    long _words_per_row;
    const unsigned char* _pattern;
    std::uint32_t _high;
    std::uint32_t _low;
    ks_composition_mode _mode;
    ks_merge::color_rows_func _compose_rows;
};

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

template <class Paint> void ks_painter::PaintPixels(const Paint& paint) const {
    if (IgnoresDestination()) {
        paint([this](std::ptrdiff_t place, long, long) { _pixels[place] = _high; });
    } else if (_pattern == nullptr && !NeedsOrder() && _mode != kMergeErase) {
        // Run kernels compute what the pixel kernels do, but for Erase.
        ks_scattered_run run(_compose_rows, _high);
        paint([this, &run](std::ptrdiff_t place, long, long) { run.Add(_pixels + place); });
    } else {
        paint([this](std::ptrdiff_t place, long x, long y) {
            _pixels[place] = Composed(_pixels[place], ColorAt(x, y));
        });
    }
}
