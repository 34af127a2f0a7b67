// SPDX-License-Identifier: MIT
// Pixels of a raster by their place in the plane, for tests.
#pragma once

#include "raster/KSRaster.h"
#include "tests/support/noise.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

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

// Returns the pixels row by row.
inline std::vector<std::uint32_t> PixelsOf(const KSRaster& raster) {
    std::vector<std::uint32_t> pixels;
    ForEachPixel(raster.Frame(), [&](long x, long y) { pixels.push_back(PixelAt(raster, x, y)); });
    return pixels;
}

// Returns whether two rasters have the same memory.
inline bool SameBytes(const KSRaster& one, const KSRaster& other) {
    return std::ranges::equal(BytesOf(one), BytesOf(other));
}
