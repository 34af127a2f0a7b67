// SPDX-License-Identifier: MIT
// Pixels of a raster by their place in the plane, for tests.
#pragma once

#include "raster/KSRaster.h"

#include <cstdint>
#include <random>

inline std::uint32_t& PixelAt(const KSRaster& raster, long x, long y) {
    auto* row = static_cast<unsigned char*>(raster.Bits()) + (y - raster.Frame().top) * raster.BytesPerRow();
    return reinterpret_cast<std::uint32_t*>(row)[x - raster.Frame().left];
}

// Calls `visit(x, y)` for each pixel of the frame.
template <class Visit> void ForEachPixel(const KSRect<long>& frame, Visit visit) {
    for (long y = frame.top; y <= frame.bottom; y++)
        for (long x = frame.left; x <= frame.right; x++)
            visit(x, y);
}

inline void FillWithNoise(KSRaster& raster, unsigned seed) {
    std::mt19937 random(seed);
    ForEachPixel(raster.Frame(), [&](long x, long y) { PixelAt(raster, x, y) = random(); });
}

// Returns whether two rasters of one size hold the same pixels, wherever their frames are.
inline bool SamePixels(const KSRaster& one, const KSRaster& other) {
    bool same = one.Width() == other.Width() && one.Height() == other.Height();
    const long dx = other.Frame().left - one.Frame().left, dy = other.Frame().top - one.Frame().top;
    if (same)
        ForEachPixel(one.Frame(), [&](long x, long y) {
            same = same && PixelAt(one, x, y) == PixelAt(other, x + dx, y + dy);
        });
    return same;
}
