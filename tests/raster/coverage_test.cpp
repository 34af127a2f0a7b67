// SPDX-License-Identifier: MIT
// Layers, masks, shapes and shadows equal their definitions, in parts too.
#include "hdr/KSPixels.h"
#include "merge/ks_compose.h"
#include "raster/ks_coverage.h"
#include "tests/raster/pixels.h"
#include "tests/reference/pixels.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using rect = KSRect<long>;

constexpr long kLeast = std::numeric_limits<long>::min(), kMost = std::numeric_limits<long>::max();

// Expects `call(page)`, called for parts of a page, to store `want(pixel, x, y)`.
template <class Call, class Want> void ExpectPainted(const rect& frame, Call call, Want want) {
    KSRaster page(frame);
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        FillWithNoise(page, 3);
        std::vector<std::uint32_t> wanted;
        ForEachPixel(frame, [&](long x, long y) { wanted.push_back(want(PixelAt(page, x, y), x, y)); });
        const long y = frame.top + frame.PixelHeight() / 3;
        call(page.Pixels().Part({kLeast, kLeast, frame.left + 5, y}));
        call(page.Pixels().Part({frame.left + 6, kLeast, kMost, y}));
        call(page.Pixels().Part({kLeast, y + 1, kMost, kMost}));
        EXPECT_EQ(PixelsOf(page), wanted) << NameOf(level);
    }
}

// What a mode makes of a pixel and one of a layer.
std::uint32_t Composed(ks_composition_mode mode, std::uint32_t pixel, std::uint32_t layer,
                       std::uint32_t opacity) {
    KSMerge::hash_array_func[mode](&pixel, &layer, opacity, 1);
    return pixel;
}

TEST(Composition, EqualsTheArrayKernelsWhereBothHavePixels) {
    KSRaster layer({0, 0, 399, 8});
    FillWithNoise(layer, 1);
    const auto bytes = BytesOf(layer);
    std::fill(bytes.begin() + 900, bytes.begin() + 2000, 0);
    std::fill(bytes.begin() + 2500, bytes.begin() + 3600, 255);
    const KSPixels<const std::uint8_t> mask(bytes.data(), 1600, {10, -2, 609, 6});
    const ks_color color(200, 100, 50, 180);
    for (std::int32_t m = 0; m < kMergeCount; m++) {
        const auto mode = static_cast<ks_composition_mode>(m);
        if (mode == kMergeDissolve)
            continue;
        SCOPED_TRACE(m);
        const auto placed = layer.Pixels().MovedTo({-7, 2});
        ExpectPainted(
            {-20, -3, 350, 7}, [&](auto page) { ks_compose(page, placed, mode, 99); },
            [&](std::uint32_t pixel, long x, long y) {
                return reference::Holds(placed.frame, x, y) ? Composed(mode, pixel, *placed.At(x, y), 99)
                                                            : pixel;
            });
        ExpectPainted(
            {-20, -3, 700, 7}, [&](auto page) { ks_compose_mask(page, mask, color, mode, 99); },
            [&](std::uint32_t pixel, long x, long y) {
                if (!reference::Holds(mask.frame, x, y))
                    return pixel;
                const std::uint32_t alpha = *mask.At(x, y) * 180u / 255;
                return Composed(mode, pixel, alpha << 24 | (ks_pixel_word(color) & 0xFFFFFF), 99);
            });
    }
    KSRaster far({kMost - 3, kLeast, kMost, kLeast + 1});
    ks_compose(far, layer.Pixels().MovedTo({kMost - 9, kLeast}), kMergeCopy);  // leaves the range of long
    ks_compose(far, layer.Pixels().MovedTo({kMost - 399, kLeast}), kMergeCopy);
    EXPECT_EQ(PixelAt(far, kMost, kLeast), PixelAt(layer, 399, 0));
}

TEST(RoundShapes, CoverWhatLiesInThemAndCompose) {
    const struct {
        rect box;
        long radius;  // of the corners; -1 for an ellipse
    } rows[] = {{{0, 0, 99, 99}, -1},
                {{3, -4, 43, 8}, -1},
                {{-1, -1, -1, -1}, -1},
                {{0, 0, 4, 300}, -1},
                {{0, 0, 400, 2}, -1},
                {{5, 5, 6, 6}, -1},
                {{0, 0, 30, 20}, 7},
                {{0, 0, 30, 20}, 99},
                {{0, 0, 9, 60}, -5},
                {{0, 0, 20, 20}, 10},
                {{kMost - 8, kLeast, kMost, kLeast + 5}, -1},
                {{kMost - 8, kLeast, kMost, kLeast + 5}, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        const bool ellipse = row.radius == -1;
        const KSMask mask = ellipse ? KSMask::Ellipse(row.box) : KSMask::RoundRect(row.box, row.radius);
        const double w = static_cast<double>(row.box.PixelWidth()),
                     h = static_cast<double>(row.box.PixelHeight());
        const double r = std::clamp(static_cast<double>(row.radius), 0.0, std::min(w, h) / 2);
        const rect at_zero(0, 0, row.box.PixelWidth() - 1, row.box.PixelHeight() - 1);
        ForEachPixel(at_zero, [&](long x, long y) {
            EXPECT_NEAR(mask.bytes[static_cast<std::size_t>(y * row.box.PixelWidth() + x)],
                        reference::Coverage(at_zero, ellipse ? w / 2 : r, ellipse ? h / 2 : r, x, y), 1.7)
                << x << " " << y;
        });
        for (const auto mode : {kMergeNormal, kMergeMultiply, kMergeCopy, kMergeAlphaMask, kMergeErase}) {
            KSRaster painted({kMost - 5, kLeast, kMost, kLeast + 3}), masked = KSRaster(painted.Frame());
            if (row.box.right != kMost)
                painted.OffsetTo(-3, -3), masked.OffsetTo(-3, -3);
            FillWithNoise(painted, 9);
            FillWithNoise(masked, 9);
            const ks_color color(10, 200, 30, 190);
            if (ellipse)
                ks_fill_ellipse(painted, row.box, color, mode, 200);
            else
                ks_fill_round_rect(painted, row.box, row.radius, color, mode, 200);
            ks_compose_mask(masked, mask, color, mode, 200);
            EXPECT_TRUE(SameBytes(painted, masked)) << mode;
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
    KSMask mask({-3, 4, 30, 20}), all;
    std::ranges::generate(mask.bytes,
                          [&] { return noise.OneIn(3) ? 255 : static_cast<std::uint8_t>(noise.In(0, 255)); });
    for (const long radius : {-4, 0, 1, 3, 16, 90}) {
        const long r = std::max(radius, 0L), n = (2 * r + 1) * (2 * r + 1);
        const KSMask blurred = mask.Blurred(radius);
        KSMask part({-30, 0, 12, 25});
        part.bytes.assign(part.bytes.size(), 77);
        ks_blur(mask, part, radius);
        ForEachPixel({-60, -30, 80, 60}, [&](long x, long y) {
            long sum = 0;
            for (long v = std::max(y - r, 4L); v <= std::min(y + r, 20L); v++)
                for (long u = std::max(x - r, -3L); u <= std::min(x + r, 30L); u++)
                    sum += *mask.Items().At(u, v);
            for (const KSMask* got : {&blurred, static_cast<const KSMask*>(&part)})
                if (reference::Holds(got->frame, x, y)) {
                    ASSERT_EQ(*got->Items().At(x, y), reference::Rounded(sum, n))
                        << x << " " << y << " " << radius;
                }
        });
    }
    const KSMask far = KSMask({kMost - 1, kLeast, kMost, kLeast}).Blurred(3);
    EXPECT_EQ(far.frame, rect(kMost - 4, kLeast, kMost, kLeast + 3));
    EXPECT_THROW(KSMask({kLeast, 0, kMost, 9}), std::bad_alloc);
}

}  // namespace
