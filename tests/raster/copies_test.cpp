// SPDX-License-Identifier: MIT
// Scaled, transformed and rotated copies: their frames, names and storage, and the tools' pixels in them.
#include "bitmaptools/KSBitmapTools.h"
#include "kits/BBitmap.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <new>
#include <vector>

namespace {

using point = KSPoint<double>;
using rect = KSRect<long>;
using raster_ptr = std::unique_ptr<KSRaster>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

raster_ptr Mapped(KSRaster& source, point p1, point p2, point p3, point p4, bool bilinear = false,
                  double angle = 0, point center = {}) {
    return raster_ptr(source.CreateScaled(p1, p2, p3, p4, bilinear, angle, center));
}

// An image whose rows lie farther apart than they are long.
raster_ptr MakeSource() {
    auto source = std::make_unique<KSRaster>(new BBitmap(BRect(-3, 0, 9, 7), B_RGB32));
    FillWithNoise(*source, 21);
    source->OffsetTo(3, -2);
    return source;
}

TEST(Copies, OfTheSameSizeAreExact) {
    const raster_ptr source = MakeSource();
    for (const auto native : {kRasterInMemory, kRasterInBBitmap, kRasterNativeAuto})
        for (const bool bilinear : {false, true}) {
            const raster_ptr copy(source->CreateScaled(rect(100, 200, 109, 207), bilinear, native));
            EXPECT_TRUE(SamePixels(*source, *copy));
            EXPECT_EQ(copy->Frame(), rect(100, 200, 109, 207));
            EXPECT_EQ(copy->GetBBitmap() != nullptr, native == kRasterInBBitmap);
            EXPECT_STREQ(copy->Name(), "KSRaster");
            EXPECT_FALSE(source->IsLocked());
        }
    EXPECT_TRUE(SamePixels(*source, *Mapped(*source, {0, 0}, {9, 0}, {9, 7}, {0, 7}, true)));
}

TEST(Copies, HoldWhatTheToolsMake) {
    const raster_ptr source = MakeSource();
    const auto* words = static_cast<const std::uint32_t*>(source->Bits());
    const auto expect = [&](const KSRaster& copy, const std::vector<std::uint32_t>& want) {
        std::size_t i = 0;
        ForEachPixel(copy.Frame(),
                     [&](long x, long y) { EXPECT_EQ(PixelAt(copy, x, y), want[i++]) << x << ", " << y; });
    };
    for (const bool bilinear : {false, true}) {
        std::vector<std::uint32_t> want(5 * 20);
        (bilinear ? KSBitmapTools::ScaleBiLin : KSBitmapTools::ScalePlain)(10, 8, 5, 20, words, want.data(),
                                                                           13, 5);
        expect(*raster_ptr(source->CreateScaled(rect(-2, -3, 2, 16), bilinear, kRasterInBBitmap)), want);
        expect(*Mapped(*source, {-2, -3}, {2, -3}, {2, 16}, {-2, 16}, bilinear), want);

        const point p[] = {{0, 0}, {10, 2}, {10, 12}, {0, 10}};
        const rect frame(-16, -16, 26, 28);
        std::vector<std::uint32_t> mapped(43 * 45);
        (bilinear ? KSBitmapTools::TransformBiLin : KSBitmapTools::TransformPlain)(
            source->Frame(), p[0], p[1], p[2], p[3], frame, words, mapped.data(), 13, 43);
        const raster_ptr copy = Mapped(*source, p[0], p[1], p[2], p[3], bilinear);
        ASSERT_EQ(copy->Frame(), frame);
        EXPECT_EQ(copy->GetBBitmap(), nullptr);
        expect(*copy, mapped);

        const raster_ptr turned = Mapped(*source, p[0], p[1], p[2], p[3], bilinear, 0.5, {1, 2});
        const rect area = turned->Frame();
        std::vector<std::uint32_t> rotated(static_cast<std::size_t>(area.PixelWidth() * area.PixelHeight()));
        (bilinear ? KSBitmapTools::RotateBiLin
                  : KSBitmapTools::RotatePlain)(frame, area, {1, 2}, 0.5, mapped.data(), rotated.data(), 43,
                                                static_cast<std::uint32_t>(area.PixelWidth()));
        expect(*turned, rotated);
    }
}

TEST(Copies, LieWhereTheCornersSay) {
    KSRaster source({0, 0, 9, 9}, "sky");
    EXPECT_EQ(Mapped(source, {0.4, 0.5}, {9.6, 0.5}, {9.6, 9.49}, {0.4, 9.49})->Frame(), rect(0, 1, 10, 9));
    EXPECT_EQ(Mapped(source, {-0.5, -1.5}, {3, -1.5}, {3, -0.6}, {-0.5, -0.6})->Frame(), rect(0, -1, 3, -1));
    const raster_ptr skewed = Mapped(source, {0.9, -0.9}, {10, 2}, {10.7, 12.9}, {-3.9, 10});
    EXPECT_EQ(skewed->Frame(), rect(-19, -16, 26, 28));
    EXPECT_STREQ(skewed->Name(), "sky");
    EXPECT_EQ(Mapped(source, {0, 0}, {9, 0}, {9, 9}, {0, 9}, false, 0.5)->Frame(), rect(-16, -20, 28, 23));
    EXPECT_EQ(Mapped(source, {0, 0}, {9, 0}, {9, 9}, {0, 9}, false, 1e-300)->Frame(), rect(-16, -16, 25, 25));
    EXPECT_EQ(Mapped(source, {0, 0}, {9, 0}, {9, 9}, {0, 9}, false, 2.0, {4.9, -4.9})->Frame(),
              rect(-11, -29, 33, 14));
}

TEST(Copies, OfNoUprightRectangleHaveAMargin) {
    KSRaster source({0, 0, 9, 9});
    EXPECT_EQ(Mapped(source, {0, 0}, {9, 0}, {9, 9}, {0, 9})->Frame(), rect(0, 0, 9, 9));
    // Each has one side that is not upright or not level.
    const point kOneOff[][4] = {
        {{0, 0}, {9, 0}, {9, 9}, {1, 9}},
        {{0, 0}, {9, 0}, {8, 9}, {0, 9}},
        {{0, 0}, {9, 1}, {9, 9}, {0, 9}},
        {{0, 0}, {9, 0}, {9, 9}, {0, 8}},
    };
    for (const auto& p : kOneOff)
        EXPECT_EQ(Mapped(source, p[0], p[1], p[2], p[3])->Frame(), rect(-16, -16, 25, 25))
            << "quadrilateral " << &p - kOneOff;
}

TEST(Copies, LieFarAwayWhereTheCornersSay) {
    const raster_ptr source = MakeSource();
    const double far = 0x1p50;
    const auto at = static_cast<long>(far);
    EXPECT_EQ(Mapped(*source, {far, 0}, {far + 9, 0}, {far + 9, 4}, {far, 4})->Frame(),
              rect(at, 0, at + 9, 4));
    EXPECT_EQ(Mapped(*source, {-far, 0}, {9 - far, 1}, {9 - far, 4}, {-far, 4})->Frame(),
              rect(-at - 16, -16, 9 - at + 16, 4 + 16));
    EXPECT_THROW(Mapped(*source, {1e300, 0}, {2e300, 0}, {2e300, 4}, {1e300, 4}), std::bad_alloc);
    EXPECT_FALSE(source->IsLocked());
}

TEST(Copies, OfNothingAreTransparent) {
    KSRaster empty({5, 5, 4, 9});
    for (const raster_ptr& copy : {raster_ptr(empty.CreateScaled(rect(0, 0, 3, 3), true, kRasterInMemory)),
                                   Mapped(empty, {0, 0}, {3, 0}, {3, 3}, {0, 3}),
                                   Mapped(empty, {0, 0}, {3, 1}, {3, 4}, {0, 3}, true, 1.0)}) {
        ASSERT_NE(copy, nullptr);
        copy->ResetOptmizedFrame();
        EXPECT_FALSE(copy->OptimizedFrame().IsValid());
    }
}

TEST(Copies, AreRefusedOrThrownWithoutALockLeftBehind) {
    const raster_ptr source = MakeSource();
    EXPECT_EQ(source->CreateScaled(rect(5, 5, 4, 9), true, kRasterInMemory), nullptr);
    EXPECT_EQ(Mapped(*source, {5, 0}, {3, 0}, {3, 3}, {5, 3}, true, 1.0), nullptr);
    EXPECT_EQ(Mapped(*source, {kNan, 0}, {3, 0}, {3, 3}, {0, 3}), nullptr);
    EXPECT_EQ(Mapped(*source, {0, 0}, {3, 1}, {3, 4}, {0, 1 / 0.0}), nullptr);
    EXPECT_EQ(Mapped(*source, {0, 0}, {3, 0}, {3, 3}, {0, 3}, false, kNan), nullptr);
    EXPECT_EQ(Mapped(*source, {0, 0}, {3, 0}, {3, 3}, {0, 3}, false, 0, {0, kNan}), nullptr);
    EXPECT_THROW(source->CreateScaled(rect(0, 0, 99999, 99999), true, kRasterInMemory), std::bad_alloc);
    EXPECT_THROW(Mapped(*source, {-1e300, 0}, {3, 1}, {1e300, 3}, {0, 3}), std::bad_alloc);
    EXPECT_NE(Mapped(*source, {0, 0}, {3, 0}, {3, 3}, {0, 3}, true, 1.0, {1e300, -1e300}), nullptr);
    EXPECT_FALSE(source->IsLocked());

    KSRaster narrow({0, 0, 3, 3}, nullptr, KS_RGB16_COLOR_SPACE);
    EXPECT_EQ(narrow.CreateScaled(rect(0, 0, 3, 3), true, kRasterInMemory), nullptr);
    EXPECT_EQ(Mapped(narrow, {0, 0}, {3, 0}, {3, 3}, {0, 3}), nullptr);
}

}  // namespace
