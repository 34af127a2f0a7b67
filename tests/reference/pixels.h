// SPDX-License-Identifier: MIT
// What the functions on pixels with a place store, by their definitions: one item after the other, by its
// coordinates, in true divisions. Slow, and meant to be read.
#pragma once

#include "bitmaptools/ks_resample.h"
#include "hdr/KSPixels.h"
#include "tests/reference/sampling.h"

#include <cmath>
#include <functional>

namespace reference {

using Pixels = KSPixels<const Word>;

inline bool Holds(const Rect& r, long x, long y) {
    return x >= r.left && x <= r.right && y >= r.top && y <= r.bottom;
}

// Rounds n / by to the nearest, halves up.
inline i64 Rounded(i64 n, i64 by) {
    return FloorDivided(2 * n + by, 2 * by);
}

// The pixel (x, y) of `source` resized to fill `whole`.
inline Word Reduced(const Pixels& source, const Rect& whole, long x, long y) {
    const i64 w = whole.PixelWidth(), h = whole.PixelHeight();
    const i64 sw = source.frame.PixelWidth(), sh = source.frame.PixelHeight();
    const i64 left = (x - whole.left) * sw, top = (y - whole.top) * sh;
    Channels sums = {};
    for (i64 v = 0; v < sh; ++v)
        for (i64 u = 0; u < sw; ++u) {
            const i64 across = std::min(left + sw, u * w + w) - std::max(left, u * w);
            const i64 down = std::min(top + sh, v * h + h) - std::max(top, v * h);
            if (across <= 0 || down <= 0)
                continue;
            const Channels pixel = Unpacked(*source.At(source.frame.left + u, source.frame.top + v));
            sums[0] += across * down * pixel[0];
            for (std::size_t c = 1; c < 4; ++c)
                sums[c] += across * down * pixel[0] * pixel[c];
        }
    const i64 alpha = Rounded(sums[0], sw * sh);
    if (alpha == 0)
        return 0;
    return Packed({alpha, Rounded(sums[1], sums[0]), Rounded(sums[2], sums[0]), Rounded(sums[3], sums[0])});
}

// The source of the pixel (x, y), or nothing if it keeps its value.
inline std::optional<Word> Projected(const Pixels& source, const ks_projection& map, bool bilinear, long x,
                                     long y) {
    const Rect& frame = source.frame;
    const auto row = [&](int k, double origin) {
        const auto at = [&](int c) { return map.m[k + c] - origin * map.m[6 + c]; };
        return at(0) * (static_cast<double>(x) + 0.5) + (at(1) * (static_cast<double>(y) + 0.5) + at(2));
    };
    const double w = row(6, 0);
    const double u = row(0, static_cast<double>(frame.left)) / w,
                 v = row(3, static_cast<double>(frame.top)) / w;
    if (!(w > 0 && u >= 0 && v >= 0 && u < static_cast<double>(frame.PixelWidth()) &&
          v < static_cast<double>(frame.PixelHeight())))
        return std::nullopt;
    const i64 px = static_cast<i64>(std::floor(u * 4096)), py = static_cast<i64>(std::floor(v * 4096));
    if (!bilinear)
        return *source.At(frame.left + px / 4096, frame.top + py / 4096);
    // The outermost pixels go on beyond the sides.
    Word square[4];
    for (long k = 0; k < 4; ++k)
        square[k] = *source.At(
            std::clamp(frame.left + FloorDivided(px - 2048, 4096) + k % 2, frame.left, frame.right),
            std::clamp(frame.top + FloorDivided(py - 2048, 4096) + k / 2, frame.top, frame.bottom));
    return Source{square, 2, 2, 2}.Bilinear((px + 2048) % 4096, (py + 2048) % 4096);
}

// A pixel whose colours are multiplied by its alpha, or divided by it if `back`.
inline Word Premultiplied(Word word, bool back) {
    Channels c = Unpacked(word);
    for (std::size_t k = 1; k < 4; ++k)
        c[k] = !back       ? Rounded(c[k] * c[0], 255)
               : c[0] == 0 ? 0
                           : std::min<i64>(Rounded(c[k] * 255, c[0]), 255);
    return Packed(c);
}

// The coverage of a pixel of a box with round corners, which is an ellipse if the radii are half its sides:
// the mean over many points.
inline double Coverage(const Rect& box, double x_radius, double y_radius, long x, long y) {
    constexpr int kPoints = 100;
    int inside = 0;
    const auto beyond = [](double at, long first, long last, double radius) {
        const double low = static_cast<double>(first) + radius, high = static_cast<double>(last) + 1 - radius;
        return radius > 0 ? (at - std::clamp(at, std::min(low, high), high)) / radius : 0;
    };
    for (int k = 0; k < kPoints * kPoints; ++k) {
        const double u =
            beyond(static_cast<double>(x) + (k % kPoints + 0.5) / kPoints, box.left, box.right, x_radius);
        const double v =
            beyond(static_cast<double>(y) + (k / kPoints + 0.5) / kPoints, box.top, box.bottom, y_radius);
        inside += u * u + v * v <= 1;
    }
    return 255.0 * inside / (kPoints * kPoints);
}

}  // namespace reference
