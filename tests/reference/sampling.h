// SPDX-License-Identifier: MIT
// The operations of KSBitmapTools by their definitions: one pixel after the other, on unpacked channels, in
// 64-bit integers, with true divisions and a test of every access. Slow, and meant to be read.
#pragma once

#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "tests/reference/channels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace reference {

using i64 = std::int64_t;

// The source of an operation, asked for pixels at positions in 1/4096 of a pixel.
struct Source {
    const Word* pixels;
    i64 width, height, row_length;

    std::optional<Word> At(i64 x, i64 y) const {
        if (x < 0 || y < 0 || x >= width || y >= height)
            return std::nullopt;
        return pixels[y * row_length + x];
    }

    std::optional<Word> Nearest(i64 x, i64 y) const {
        return At(FloorDivided(x, 4096), FloorDivided(y, 4096));
    }

    std::optional<Word> Bilinear(i64 x, i64 y) const {
        const i64 ix = FloorDivided(x, 4096), iy = FloorDivided(y, 4096);
        const i64 fx = x - ix * 4096, fy = y - iy * 4096;
        if (ix < -1 || iy < -1 || ix >= width || iy >= height)
            return std::nullopt;
        Channels sums = {};
        for (int row = 0; row < 2; ++row)
            for (int column = 0; column < 2; ++column) {
                const Channels pixel = Unpacked(At(ix + column, iy + row).value_or(0));
                const i64 v = (column ? fx : 4096 - fx) * (row ? fy : 4096 - fy) * pixel[0];
                const i64 weight = (v + v / 256 + 1) / 256;
                sums[0] += weight;
                for (std::size_t c = 1; c < 4; ++c)
                    sums[c] += weight * pixel[c];
            }
        const i64 w = sums[0];
        return w == 0 ? 0 : Packed({w / 65536, sums[1] / w, sums[2] / w, sums[3] / w});
    }
};

inline void Store(Word& pixel, std::optional<Word> value) {
    if (value)
        pixel = *value;
}

using Words = const Word*;
using Rect = KSRect<long>;
using Point = KSPoint<double>;

// Returns the bilinear sample, or the nearest pixel, of a position.
template <bool bilinear> std::optional<Word> Sampled(const Source& image, i64 x, i64 y) {
    return bilinear ? image.Bilinear(x, y) : image.Nearest(x, y);
}

template <bool bilinear>
void Scale(int sw, int sh, int dw, int dh, Words source, Word* result, int source_row, int result_row) {
    const Source image = {source, sw, sh, source_row};
    i64 y = bilinear ? -2047 : 0;
    for (i64 j = 0; j < dh; ++j, y += image.height * 4096 / dh) {
        i64 x = bilinear ? -2047 : 0;
        for (i64 i = 0; i < dw; ++i, x += image.width * 4096 / dw)
            Store(result[j * result_row + i], Sampled<bilinear>(image, x, y));
    }
}

template <bool bilinear>
void Rotate(Rect from, Rect to, Point centre, double angle, Words source, Word* result, Word source_row,
            Word result_row) {
    const i64 shift = 65536, w = from.PixelWidth(), h = from.PixelHeight();
    const i64 left = from.left + shift, top = from.top + shift;
    const double cx = centre.x + 65536, cy = centre.y + 65536;
    const auto map = [&](i64 px, i64 py, double theta) {
        const double x = static_cast<double>(px), y = static_cast<double>(py);
        const auto cosine = static_cast<double>(std::cos(static_cast<long double>(theta)));
        const auto sine = static_cast<double>(std::sin(static_cast<long double>(theta)));
        return Point(cx + (x - cx) * cosine + (y - cy) * sine, cy + (y - cy) * cosine - (x - cx) * sine);
    };
    const auto floored = [&](i64 x, i64 y) {
        const auto p = map(x, y, angle);
        return KSPoint<i64>(static_cast<i64>(std::floor(p.x * 4096)),
                            static_cast<i64>(std::floor(p.y * 4096)));
    };
    const auto tl = floored(left, top), tr = floored(left + w, top), bl = floored(left, top + h);
    const auto start = map(to.left + shift, to.top + shift, -angle);
    const i64 x0 = static_cast<i64>(std::trunc(start.x * 4096));
    const i64 y0 = static_cast<i64>(std::trunc(start.y * 4096));
    const Source image = {source, w, h, source_row};
    for (i64 j = 0; j < to.PixelHeight(); ++j)
        for (i64 i = 0; i < to.PixelWidth(); ++i) {
            const i64 x = x0 + j * ((tl.x - bl.x) / h) + i * ((tr.x - tl.x) / w);
            const i64 y = y0 + j * ((bl.y - tl.y) / h) + i * ((tl.y - tr.y) / w);
            Store(result[j * result_row + i], Sampled<bilinear>(image, x - left * 4096, y - top * 4096));
        }
}

template <bool bilinear>
void Transform(Rect from, Point p0, Point p1, Point p2, Point p3, Rect to, Words source, Word* result,
               Word source_row, Word result_row) {
    const Source image = {source, from.PixelWidth(), from.PixelHeight(), source_row};
    const double w = static_cast<double>(image.width), h = static_cast<double>(image.height);
    const double least = bilinear ? -0.1 : 0, most = bilinear ? 1.1 : 1;
    // The position of a fraction of a length: of a pixel's corner, or half a pixel before it.
    const auto position = [](double fraction, double length) {
        if (bilinear)
            return static_cast<i64>(std::trunc(fraction * length * 4096)) - 2047;
        return std::min(static_cast<i64>(std::trunc(fraction * length)), static_cast<i64>(length) - 1) * 4096;
    };
    std::array<Point, 4> p = {p0, p1, p2, p3};
    for (auto& point : p)
        point = {point.x + 65536, point.y + 65536};
    const bool x_parallel = std::floor(p[1].x - p[0].x) == std::floor(p[2].x - p[3].x);
    const bool y_parallel = std::floor(p[2].y - p[1].y) == std::floor(p[3].y - p[0].y);
    p[0].x += x_parallel ? 0.1 : 0;
    p[0].y += y_parallel ? 0.1 : 0;
    const double ax = p[1].x - p[2].x + p[3].x - p[0].x, ay = p[1].y - p[2].y + p[3].y - p[0].y;
    const double bx = p[2].x - p[3].x, by = p[2].y - p[3].y;
    const double cx = p[0].x - p[3].x, cy = p[0].y - p[3].y;
    const double A = ax * by - bx * ay;
    if (A == 0)
        return;
    for (i64 j = 0; j < to.PixelHeight(); ++j)
        for (i64 i = 0; i < to.PixelWidth(); ++i) {
            const double X = static_cast<double>(to.left + i + 65536);
            const double Y = static_cast<double>(to.top + j + 65536);
            const double B = ay * X - ax * Y + ax * p[3].y - p[3].x * ay + cx * by - cy * bx;
            const double C = cy * X - cx * Y + cx * p[3].y - p[3].x * cy;
            const double d = B * B - 4 * A * C;
            if (d < 0)
                continue;
            const double t = (std::sqrt(d) - B) / (2 * A);
            if (!(least <= t && t <= most))
                continue;
            const double divisor = ax * t + cx;
            if (divisor == 0)
                continue;
            const double v = (X - bx * t - p[3].x) / divisor;
            if (least <= v && v <= most)
                Store(result[j * result_row + i],
                      Sampled<bilinear>(image, position(t, w), position(1 - v, h)));
        }
}

// Has the functions of KSBitmapTools, with their arguments.
struct BitmapTools {
    static constexpr auto ScalePlain = Scale<false>, ScaleBiLin = Scale<true>;
    static constexpr auto RotatePlain = Rotate<false>, RotateBiLin = Rotate<true>;
    static constexpr auto TransformPlain = Transform<false>, TransformBiLin = Transform<true>;

    static void NoiseRemover(std::uint8_t* image, Word width, Word height, std::uint8_t radius,
                             std::uint8_t threshold) {
        const i64 w = width, h = height, r = radius;
        const std::vector<std::uint8_t> before(image, image + w * h);
        const auto at = [&](i64 x, i64 y) -> int {
            return x < 0 || y < 0 || x >= w || y >= h ? -1 : before[static_cast<std::size_t>(y * w + x)];
        };
        for (i64 y = 0; y < h && w > 1; ++y)
            for (i64 x = 0; x < w; ++x) {
                const int value = at(x, y);
                int neighbours = 0, square = 0, left_count = 0, right_count = 0;
                for (i64 dy = -1; dy <= 1; ++dy)
                    for (i64 dx = -1; dx <= 1; ++dx)
                        neighbours += (dx || dy) && at(x + dx, y + dy) == value;
                for (i64 v = std::max<i64>(y - r, 0); v <= std::min(y + r, h - 1) && neighbours == 0; ++v)
                    for (i64 u = std::max<i64>(x - r, 0); u <= std::min(x + r, w - 1); ++u)
                        square += u != x && v != y && at(u, v) == value;
                const int left = at(x == 0 ? 1 : x - 1, y), right = at(x == w - 1 ? x - 1 : x + 1, y);
                for (i64 dx = -r; dx <= r; ++dx) {
                    left_count += at(x + dx, y) == left;
                    right_count += at(x + dx, y) == right;
                }
                if (neighbours == 0 && square < threshold)
                    image[y * w + x] = static_cast<std::uint8_t>(left_count > right_count ? left : right);
            }
    }
};

}  // namespace reference
