// SPDX-License-Identifier: MIT
// Pixels of a raster by their place in the plane, for tests.
#pragma once

#include "raster/KSRaster.h"
#include "tests/support/noise.h"

#include <cstdint>
#include <cstring>
#include <span>

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

inline std::span<unsigned char> BytesOf(const KSRaster& raster) {
    return {static_cast<unsigned char*>(raster.Bits()), static_cast<std::size_t>(raster.BitsLength())};
}

// Fills the memory of a raster of any colour space.
inline void FillWithNoise(const KSRaster& raster, std::uint32_t seed) {
    Noise noise(seed);
    for (unsigned char& byte : BytesOf(raster))
        byte = static_cast<unsigned char>(noise.Word());
}

// Returns whether two rasters have the same memory.
inline bool SameBytes(const KSRaster& one, const KSRaster& other) {
    return one.BitsLength() == other.BitsLength() &&
           (one.BitsLength() == 0 || std::memcmp(one.Bits(), other.Bits(), BytesOf(one).size()) == 0);
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
