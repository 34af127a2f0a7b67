// SPDX-License-Identifier: MIT
// Transformation equals its definition at every level, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <array>
#include <cmath>

namespace {

using Corners = std::array<KSPoint<double>, 4>;

void ExpectTransformed(Noise& noise, const KSRect<long>& from, const Corners& p, const KSRect<long>& to,
                       long row_length = -1) {
    TestImage source(noise, from.PixelWidth(), from.PixelHeight(), row_length);
    TestImage destination(noise, to.PixelWidth(), to.PixelHeight());
    ExpectLikeReference(
        noise, source, destination, [&]<class Tools>(bool bilinear, const Word* pixels, Word* result) {
            (bilinear ? Tools::TransformBiLin : Tools::TransformPlain)(
                from, p[0], p[1], p[2], p[3], to, pixels, result, static_cast<Word>(source.row_length),
                static_cast<Word>(destination.row_length));
        });
}

// Quadrilaterals of any shape: convex and not, mirrored, with parallel sides, shrunk to a line or a point.
TEST(Transform, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 600 && !HasFailure(); seed += kSweepStep) {
        Noise noise(seed);
        const long origin = noise.OneIn(5) ? -65600 : noise.In(-100, 100);
        const double left = static_cast<double>(origin), right = left + static_cast<double>(noise.In(0, 90));
        Corners p = {{{left, left}, {right, left}, {right, right}, {left, right}}};
        const bool whole = noise.OneIn(3);
        if (!noise.OneIn(4))
            for (auto& point : p) {
                point = {point.x + noise.Real(-30, 30), point.y + noise.Real(-30, 30)};
                if (whole)
                    point = {std::floor(point.x), std::floor(point.y)};
            }
        if (noise.OneIn(8))
            p[2] = p[1];
        const long to_left = origin + noise.In(-20, 20), to_top = origin + noise.In(-20, 20);
        ExpectTransformed(noise, {0, 0, Size(noise) - 1, Size(noise) - 1}, p,
                          {to_left, to_top, to_left + Size(noise) - 1, to_top + Size(noise) - 1});
    }
}

TEST(Transform, EqualsItsDefinitionAtTheEndsOfItsRange) {
    constexpr long kRows = 9000, kWide = 1 << 18, kLeast = -(1L << 31), kMost = (1L << 31) - 1;
    const Corners tilted = {{{0, 0}, {37.5, 1}, {34, 36}, {1, 33}}};
    const struct {
        KSRect<long> from;
        Corners p;
        KSRect<long> to;
        long row_length = -1;
    } rows[] = {
        // Over the rows the last position of a block moves across the source's last column, and the rows
        // across its last row, in steps of less than 1/4096 of a pixel: a position exactly there has no
        // neighbour beyond.
        {{0, 0, 65, 1}, {{{0, 0}, {65.4, 0}, {65.6, kRows}, {0, kRows}}}, {2, 0, 65, kRows - 1}},
        // b = (2, 0), c = (0, -2), a = (1, 0): exact positions with t = 1 and v = 0
        {{0, 0, 1, 1}, {{{0, 0}, {3, 0}, {2, 2}, {0, 2}}}, {-1, -1, 4, 4}},
        // positions that do and do not fit 32 bits, spread out and all seen at once
        {{0, 0, kWide - 2, 3},
         {{{0, 0}, {kWide, 5}, {kWide + 9, 40}, {3, 44}}},
         {kWide - 80, -5, kWide + 20, 60}},
        {{0, 0, kWide + 7, 3},
         {{{0, 0}, {kWide, 5}, {kWide + 9, 40}, {3, 44}}},
         {kWide - 80, -5, kWide + 20, 60}},
        {{0, 0, kWide + 7, 3}, {{{0, 0}, {90, 5}, {80, 60}, {3, 44}}}, {-5, -5, 95, 66}},
        // rows that are all the same, and offsets of more than 2^31 words
        {{0, 0, 0, 500000}, tilted, {0, 0, 39, 39}, 0},
        {{0, 0, 0, 1 << 19}, tilted, {0, 0, 39, 39}, 0},
        {{0, kLeast, 0, kMost}, tilted, {0, 0, 39, 39}, 0},
        {{0, 0, 3, 5}, {{{-0.5, -0.2}, {4.1, -1}, {4.6, 6.2}, {-0.9, 6.4}}}, {0, 0, 3, 5}, 1 << 29},
    };
    for (const auto& row : rows)
        for (std::uint32_t seed = 0; seed < 2; ++seed) {
            SCOPED_TRACE(&row - rows);
            Noise noise(seed);
            ExpectTransformed(noise, row.from, row.p, row.to, row.row_length);
        }
}

}  // namespace
