// SPDX-License-Identifier: MIT
// The functions on pixels with a place store what their definitions say, at every level and in parts too.
#include "bitmaptools/ks_premultiply.h"
#include "merge/ks_compose.h"
#include "raster/ks_coverage.h"
#include "tests/raster/pixels.h"
#include "tests/reference/pixels.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using rect = KSRect<long>;
using reference::Holds;

constexpr long kLeast = std::numeric_limits<long>::min(), kMost = std::numeric_limits<long>::max();
constexpr double kInf = std::numeric_limits<double>::infinity(),
                 kNan = std::numeric_limits<double>::quiet_NaN();

// A raster with stretches of opaque, clear and other pixels.
KSRaster Painted(Noise& noise, const rect& frame) {
    KSRaster raster(frame);
    noise.Paint({raster.Pixels().first, static_cast<std::size_t>(raster.BitsLength() / 4)});
    return raster;
}

// Expects `call(page)`, called for parts of a page, to store `want(pixel, x, y)`.
template <class Call, class Want> void ExpectStored(const rect& frame, Call call, Want want) {
    Noise noise(3);
    const KSRaster before = Painted(noise, frame);
    std::vector<std::uint32_t> wanted;
    ForEachPixel(frame, [&](long x, long y) { wanted.push_back(want(PixelAt(before, x, y), x, y)); });
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        const auto page = before.Duplicate();
        const long x = frame.left + frame.PixelWidth() / 3, y = frame.top + frame.PixelHeight() / 3;
        call(page->Pixels().Part({kLeast, kLeast, x, y}));
        call(page->Pixels().Part({x + 1, kLeast, kMost, y}));
        call(page->Pixels().Part({kLeast, y + 1, kMost, kMost}));
        EXPECT_EQ(PixelsOf(*page), wanted) << NameOf(level);
    }
}

TEST(Composition, EqualsTheArrayKernelsWhereBothHavePixels) {
    Noise noise(1);
    const KSRaster layer = Painted(noise, {-7, 2, 392, 10});
    const KSMask mask = KSMask::OfAlpha(layer);
    const std::uint32_t color = 0xB4C86432;
    for (std::int32_t m = 0; m < kMergeCount; m++) {
        const auto mode = static_cast<ks_composition_mode>(m);
        const auto on = [&](std::uint32_t pixel, long x, long y, std::uint32_t above) {
            if (Holds(layer.Frame(), x, y))
                KSMerge::hash_array_func[mode](&pixel, &above, 99, 1);
            return pixel;
        };
        const auto above = [&](long x, long y) {
            return Holds(layer.Frame(), x, y) ? PixelAt(layer, x, y) : 0;
        };
        SCOPED_TRACE(m);
        if (mode == kMergeDissolve)
            continue;
        ExpectStored(
            {-20, -3, 350, 12}, [&](auto page) { ks_compose(page, layer, mode, 99); },
            [&](std::uint32_t pixel, long x, long y) { return on(pixel, x, y, above(x, y)); });
        ExpectStored(
            {-20, -3, 350, 12}, [&](auto page) { ks_compose_mask(page, mask, ks_color_of(color), mode, 99); },
            [&](std::uint32_t pixel, long x, long y) {
                return on(pixel, x, y, (above(x, y) >> 24) * (color >> 24) / 255 << 24 | (color & 0xFFFFFF));
            });
    }
    KSRaster far({kMost - 3, kLeast, kMost, kLeast + 1});
    ks_compose(far, layer.Pixels().MovedTo({kMost - 9, kLeast}), kMergeCopy);  // leaves the range of long
    EXPECT_EQ(PixelAt(far, kMost, kLeast), 0u);
    ks_compose(far, layer.Pixels().MovedTo({kMost - 399, kLeast}), kMergeCopy);
    EXPECT_EQ(PixelAt(far, kMost, kLeast), PixelAt(layer, 392, 2));
}

TEST(Premultiplication, EqualsItsDefinitionForAllAlphasAndChannels) {
    KSRaster all({1, 0, 256, 255});
    ForEachPixel(all.Frame(), [&](long x, long y) {
        PixelAt(all, x, y) =
            static_cast<std::uint32_t>(y << 24 | (x - 1) << 16 | (x * 7 & 255) << 8 | (256 - x));
    });
    for (const bool back : {false, true})
        ExpectStored(
            {0, 5, 300, 300}, [&](auto to) { (back ? ks_unpremultiply : ks_premultiply)(all.Pixels(), to); },
            [&](std::uint32_t pixel, long x, long y) {
                return Holds(all.Frame(), x, y) ? reference::Premultiplied(PixelAt(all, x, y), back) : pixel;
            });
}

TEST(Reduction, EqualsItsDefinition) {
    struct row {
        long width, height, to_width, to_height;
    };
    std::vector<row> rows = {
        // more columns than a block, more rows than bytes are summed up at once, large weights
        {1300, 2, 9, 2}, {1300, 1, 1200, 1}, {3, 700, 2, 1}, {3, 40000, 3, 7},
        {2000, 3, 3, 2}, {257, 5, 256, 5},   {4, 4, 5, 4}};
    Noise noise(2);
    for (int k = 0; k < 60; k++)
        rows.push_back({noise.In(1, 150), noise.In(1, 90), noise.In(1, 150), noise.In(1, 90)});
    for (const row& r : rows) {
        SCOPED_TRACE(&r - rows.data());
        const KSRaster source = Painted(noise, {-5, 7, r.width - 6, r.height + 6});
        const rect whole(-2, -10, r.to_width - 3, r.to_height - 11);
        ExpectStored(
            {0, -11, r.to_width, r.to_height - 12}, [&](auto part) { ks_reduce(source, whole, part); },
            [&](std::uint32_t pixel, long x, long y) {
                const bool reduced = r.to_width <= r.width && r.to_height <= r.height;
                return reduced && Holds(whole, x, y) ? reference::Reduced(source, whole, x, y) : pixel;
            });
    }
}

TEST(Projection, EqualsItsDefinition) {
    const ks_quadrilateral rows[] = {{{{3, 2}, {60, 9}, {55, 48}, {-4, 40}}},
                                     {{{70, 0}, {0, 0}, {0, 50}, {70, 50}}},
                                     {{{30, -300}, {40, -300}, {4000, 900}, {-4000, 900}}},
                                     // not convex, not finite, degenerate, huge
                                     {{{0, 0}, {60, 40}, {60, 0}, {0, 40}}},
                                     {{{0, 0}, {50, 0}, {10, 10}, {0, 50}}},
                                     {{{kNan, 0}, {50, 0}, {50, 50}, {0, 50}}},
                                     {{{0, 0}, {kInf, 0}, {50, 50}, {0, 50}}},
                                     {{{0, 0}, {25, 25}, {50, 50}, {0, 50}}},
                                     {{{7, 7}, {7, 7}, {7, 7}, {7, 7}}},
                                     {{{-2e9, -2e9}, {2e9, -2e9}, {2e9, 2e9}, {-2e9, 2e9}}}};
    Noise noise(4);
    const rect rect_to(-10, -5, 69, 44);
    for (const ks_quadrilateral& corners : rows)
        for (const KSRaster& source :
             {Painted(noise, {5, -3, 65, 43}), Painted(noise, {-(1 << 17), 0, 1 << 17, 2})}) {
            const auto in = ks_projection::FromQuadrilateral(corners, rect_to),
                       out = ks_projection::ToQuadrilateral(rect_to, corners);
            SCOPED_TRACE(&corners - rows);
            for (const bool bilinear : {false, true})
                for (const ks_projection& map : {in, out})
                    ExpectStored(
                        {-20, -9, 119, 60},
                        [&](auto part) {
                            (bilinear ? ks_project_bilinear : ks_project_plain)(source, map, part);
                        },
                        [&](std::uint32_t pixel, long x, long y) {
                            return reference::Projected(source, map, bilinear, x, y).value_or(pixel);
                        });
            // The maps take corners to corners, both ways.
            for (std::size_t k = 0; k < 4 && &corners - rows < 3; ++k) {
                const KSPoint<double> corner = ks_corners(rect_to)[k], there = in.SourceOf(corner),
                                      back = out.SourceOf(there);
                EXPECT_NEAR(std::hypot(there.x - corners[k].x, there.y - corners[k].y), 0, 1e-6);
                EXPECT_NEAR(std::hypot(back.x - corner.x, back.y - corner.y), 0, 1e-6);
            }
        }
}

TEST(RoundShapes, CoverWhatLiesInThemAndCompose) {
    const rect far(kMost - 8, kLeast, kMost, kLeast + 5);
    const std::pair<rect, long> rows[] = {{{0, 0, 99, 99}, -1},
                                          {{3, -4, 43, 8}, -1},
                                          {{-1, -1, -1, -1}, -1},
                                          {{0, 0, 4, 300}, -1},
                                          {{0, 0, 30, 20}, 7},
                                          {{0, 0, 30, 20}, 99},
                                          {{0, 0, 9, 60}, -5},
                                          {far, -1},
                                          {far, 2}};
    for (const auto& [box, radius] : rows) {  // -1 is an ellipse
        SCOPED_TRACE(&box - &rows[0].first);
        const KSMask mask = radius == -1 ? KSMask::Ellipse(box) : KSMask::RoundRect(box, radius);
        const double w = static_cast<double>(box.PixelWidth()), h = static_cast<double>(box.PixelHeight());
        const double r = std::clamp(static_cast<double>(radius), 0.0, std::min(w, h) / 2);
        const auto at_zero = mask.Items().MovedTo({0, 0});
        ForEachPixel(at_zero.frame, [&](long x, long y) {
            if ((x + 5 * y) % long{kSweepStep} != 0)
                return;
            const double want =
                reference::Coverage(at_zero.frame, radius == -1 ? w / 2 : r, radius == -1 ? h / 2 : r, x, y);
            EXPECT_NEAR(*at_zero.At(x, y), want, 1.7)
                << x << " " << y;  // of which the points of the reference miss 0.7
        });
        for (const auto mode : {kMergeNormal, kMergeCopy, kMergeAlphaMask, kMergeErase}) {
            Noise noise(9);
            KSRaster painted = Painted(noise, box == far ? rect(kMost - 5, kLeast, kMost, kLeast + 3)
                                                         : rect(-3, -3, 50, 70));
            const auto masked = painted.Duplicate();
            ks_compose_mask(*masked, mask, {10, 200, 30, 190}, mode, 200);
            if (radius == -1)
                ks_fill_ellipse(painted, box, {10, 200, 30, 190}, mode, 200);
            else
                ks_fill_round_rect(painted, box, radius, {10, 200, 30, 190}, mode, 200);
            EXPECT_TRUE(SameBytes(painted, *masked)) << mode;
        }
    }
    KSRaster page({-2, -2, 2, 2});  // at the right end of an ellipse that is larger than all memory
    ks_fill_ellipse(page, {-(1L << 31), -(1L << 30), -1, (1L << 30) - 1}, {0, 0, 0});
    ks_fill_ellipse(page, {kLeast, kLeast, kMost, kMost}, {255, 0, 0});
    EXPECT_EQ(PixelAt(page, -1, 0), 0xFF000000);
    EXPECT_EQ(PixelAt(page, 0, 0), 0u);
}

TEST(Blur, IsTheMeanOverTheSquare) {
    Noise noise(5);
    const KSMask mask = KSMask::OfAlpha(Painted(noise, {-3, 4, 30, 20}));
    for (const long radius : {-4, 0, 3, 16, 90}) {
        const long r = std::max(radius, 0L);
        KSMask part({-30, 0, 12, 25});
        ks_blur(mask, part, radius);
        for (const KSMask& got : {mask.Blurred(radius), part})
            ForEachPixel(got.frame, [&](long x, long y) {
                long sum = 0;
                for (long v = std::max(y - r, 4L); v <= std::min(y + r, 20L); v++)
                    for (long u = std::max(x - r, -3L); u <= std::min(x + r, 30L); u++)
                        sum += *mask.Items().At(u, v);
                ASSERT_EQ(*got.Items().At(x, y), reference::Rounded(sum, (2 * r + 1) * (2 * r + 1)))
                    << radius;
            });
    }
    EXPECT_EQ(KSMask({kMost - 1, kLeast, kMost, kLeast}).Blurred(3).frame,
              rect(kMost - 4, kLeast, kMost, kLeast + 3));
    EXPECT_THROW(KSMask({kLeast, 0, kMost, 9}), std::bad_alloc);
}

}  // namespace
