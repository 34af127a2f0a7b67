// SPDX-License-Identifier: MIT
// Removal of isolated specks from images of one byte per pixel.
#include "bitmaptools/KSBitmapTools.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace {

struct ByteImage {
    const std::uint8_t* pixels;
    std::ptrdiff_t width, height;

    std::uint8_t At(std::ptrdiff_t x, std::ptrdiff_t y) const { return pixels[y * width + x]; }

    // Counts the pixels of `value` in the square around (x, y), cut to the image, of which `counted` is true.
    template <class Predicate>
    int Count(std::ptrdiff_t x, std::ptrdiff_t y, std::ptrdiff_t radius_x, std::ptrdiff_t radius_y,
              std::uint8_t value, Predicate counted) const {
        int count = 0;
        for (std::ptrdiff_t v = std::max<std::ptrdiff_t>(y - radius_y, 0);
             v <= std::min(y + radius_y, height - 1); ++v)
            for (std::ptrdiff_t u = std::max<std::ptrdiff_t>(x - radius_x, 0);
                 u <= std::min(x + radius_x, width - 1); ++u)
                count += At(u, v) == value && counted(u, v);
        return count;
    }
};

}  // namespace

void KSBitmapTools::NoiseRemover(std::uint8_t* image, std::uint32_t width, std::uint32_t height,
                                 std::uint8_t radius, std::uint8_t threshold) {
    if (width < 2 || height == 0 || threshold == 0)
        return;
    const std::vector<std::uint8_t> copy(image, image + std::size_t{width} * height);
    const ByteImage before = {copy.data(), width, height};
    for (std::ptrdiff_t y = 0; y < before.height; ++y)
        for (std::ptrdiff_t x = 0; x < before.width; ++x) {
            const std::uint8_t value = before.At(x, y);
            const auto beside = [&](std::ptrdiff_t u, std::ptrdiff_t v) { return u != x || v != y; };
            const auto off_axes = [&](std::ptrdiff_t u, std::ptrdiff_t v) { return u != x && v != y; };
            const auto any = [](std::ptrdiff_t, std::ptrdiff_t) { return true; };
            if (before.Count(x, y, 1, 1, value, beside) ||
                before.Count(x, y, radius, radius, value, off_axes) >= threshold)
                continue;
            const std::uint8_t left = before.At(x > 0 ? x - 1 : x + 1, y);
            const std::uint8_t right = before.At(x + 1 < before.width ? x + 1 : x - 1, y);
            image[y * before.width + x] =
                before.Count(x, y, radius, 0, left, any) > before.Count(x, y, radius, 0, right, any) ? left
                                                                                                     : right;
        }
}
