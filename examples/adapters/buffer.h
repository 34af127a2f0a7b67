// SPDX-License-Identifier: MIT
// Rasters and plain memory that holds 32-bit pixels in rows.
#pragma once

#include "bitmaptools/ks_premultiply.h"
#include "raster/KSRaster.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

// How the colour of a buffer's pixels is kept.
enum class BufferAlpha { kStraight, kPremultiplied };

// Returns the pixel with its colour multiplied by its alpha, to the nearest.
inline std::uint32_t premultiplied_pixel(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    const auto scaled = [&](int shift) { return ((pixel >> shift & 255) * alpha + 127) / 255 << shift; };
    return alpha << 24 | scaled(16) | scaled(8) | scaled(0);
}

// Returns a raster with its top-left pixel at (0, 0) and a copy of `width` x `height` words 0xAARRGGBB in
// host byte order, at any address. Rows are `row_bytes` apart, which may be negative for pictures that are
// stored from the bottom up.
inline std::unique_ptr<KSRaster> copy_from_buffer(const void* pixels, long width, long height,
                                                  std::ptrdiff_t row_bytes, BufferAlpha alpha) {
    auto raster = std::make_unique<KSRaster>(KSRect<long>(0, 0, width - 1, height - 1));
    auto* words = static_cast<std::uint32_t*>(raster->Bits());
    for (long y = 0; y < height; ++y, words += width)
        std::memcpy(words, static_cast<const unsigned char*>(pixels) + y * row_bytes,
                    static_cast<std::size_t>(width) * 4);
    if (alpha == BufferAlpha::kPremultiplied)
        ks_unpremultiply(*raster, *raster);
    return raster;
}

// Copies the raster's pixels into such memory, which has room for as many.
inline void copy_to_buffer(const KSRaster& raster, void* pixels, std::ptrdiff_t row_bytes,
                           BufferAlpha alpha) {
    for (long y = 0; y < raster.Height(); ++y) {
        const auto* bytes = static_cast<const unsigned char*>(raster.Bits()) + y * raster.BytesPerRow();
        const auto* words = reinterpret_cast<const std::uint32_t*>(bytes);
        auto* to = static_cast<unsigned char*>(pixels) + y * row_bytes;
        for (long x = 0; x < raster.Width(); ++x) {
            const std::uint32_t pixel =
                alpha == BufferAlpha::kPremultiplied ? premultiplied_pixel(words[x]) : words[x];
            std::memcpy(to + 4 * x, &pixel, 4);
        }
    }
}
