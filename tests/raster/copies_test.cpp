// SPDX-License-Identifier: MIT
// Scaled, transformed and rotated copies: their frames, names and storage, and the tools' pixels in them.
#include "bitmaptools/KSBitmapTools.h"
#include "exchange/BBitmap.h"
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
using Pixels = std::vector<std::uint32_t>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// What CreateScaled takes: the corners, and how the result is turned.
struct mapping {
    point corners[4];
    double angle = 0;
    point center = {};
};

raster_ptr Mapped(KSRaster& source, const mapping& to, bool bilinear = true) {
    const auto& p = to.corners;
    return raster_ptr(source.CreateScaled(p[0], p[1], p[2], p[3], bilinear, to.angle, to.center));
}

// An image whose rows lie farther apart than they are long.
raster_ptr MakeSource() {
    auto source = std::make_unique<KSRaster>(new BBitmap(BRect(-3, 0, 9, 7), B_RGB32));
    FillWithNoise(*source, 21);
    source->OffsetTo(3, -2);
    return source;
}

TEST(Copies, HoldWhatTheToolsMake) {
    using Tools = KSBitmapTools;
    const raster_ptr source = MakeSource();
    const auto* words = static_cast<const std::uint32_t*>(source->Bits());
    for (const bool bilinear : {false, true}) {
        Pixels want(5 * 20);
        (bilinear ? Tools::ScaleBiLin : Tools::ScalePlain)(10, 8, 5, 20, words, want.data(), 13, 5);
        const raster_ptr scaled(source->CreateScaled(rect(-2, -3, 2, 16), bilinear, kRasterInBBitmap));
        EXPECT_EQ(PixelsOf(*scaled), want);
        EXPECT_EQ(PixelsOf(*Mapped(*source, {{{-2, -3}, {2, -3}, {2, 16}, {-2, 16}}}, bilinear)), want);

        const point p[] = {{0, 0}, {10, 2}, {10, 12}, {0, 10}};
        const rect frame(-16, -16, 26, 28);
        Pixels mapped(43 * 45);
        (bilinear ? Tools::TransformBiLin : Tools::TransformPlain)(source->Frame(), p[0], p[1], p[2], p[3],
                                                                   frame, words, mapped.data(), 13, 43);
        const raster_ptr copy = Mapped(*source, {{p[0], p[1], p[2], p[3]}}, bilinear);
        EXPECT_EQ(copy->Frame(), frame);
        EXPECT_EQ(PixelsOf(*copy), mapped);

        const raster_ptr turned = Mapped(*source, {{p[0], p[1], p[2], p[3]}, 0.5, {1, 2}}, bilinear);
        const rect area = turned->Frame();
        Pixels rotated(static_cast<std::size_t>(area.PixelWidth() * area.PixelHeight()));
        (bilinear ? Tools::RotateBiLin : Tools::RotatePlain)(frame, area, {1, 2}, 0.5, mapped.data(),
                                                             rotated.data(), 43,
                                                             static_cast<std::uint32_t>(area.PixelWidth()));
        EXPECT_EQ(PixelsOf(*turned), rotated);
    }
}

TEST(Copies, OfTheSameSizeAreExact) {
    const raster_ptr source = MakeSource();
    for (const auto native : {kRasterInMemory, kRasterInBBitmap, kRasterNativeAuto})
        for (const raster_ptr& copy :
             {raster_ptr(source->DuplicateRaster(native)),
              raster_ptr(source->CreateScaled(rect(100, 200, 109, 207), false, native)),
              raster_ptr(source->CreateScaled(rect(100, 200, 109, 207), true, native))}) {
            EXPECT_EQ(PixelsOf(*copy), PixelsOf(*source));
            EXPECT_EQ(copy->GetBBitmap() != nullptr, native == kRasterInBBitmap);
        }
    EXPECT_EQ(PixelsOf(*Mapped(*source, {{{0, 0}, {9, 0}, {9, 7}, {0, 7}}})), PixelsOf(*source));
}

// Only those of upright rectangles have no margin.
TEST(Copies, LieWhereTheCornersSay) {
    constexpr double kFar = 0x1p50;
    constexpr long kAt = 1L << 50;
    const struct {
        mapping to;
        rect want;
    } kCopies[] = {
        {{{{0.4, 0.5}, {9.6, 0.5}, {9.6, 9.49}, {0.4, 9.49}}}, {0, 1, 10, 9}},
        {{{{-0.5, -1.5}, {3, -1.5}, {3, -0.6}, {-0.5, -0.6}}}, {0, -1, 3, -1}},
        {{{{0, 0}, {9, 0}, {9, 9}, {1, 9}}}, {-16, -16, 25, 25}},
        {{{{0, 0}, {9, 0}, {8, 9}, {0, 9}}}, {-16, -16, 25, 25}},
        {{{{0, 0}, {9, 1}, {9, 9}, {0, 9}}}, {-16, -16, 25, 25}},
        {{{{0, 0}, {9, 0}, {9, 9}, {0, 8}}}, {-16, -16, 25, 25}},
        {{{{0.9, -0.9}, {10, 2}, {10.7, 12.9}, {-3.9, 10}}}, {-19, -16, 26, 28}},
        {{{{0, 0}, {9, 0}, {9, 9}, {0, 9}}, 0.5}, {-16, -20, 28, 23}},
        {{{{0, 0}, {9, 0}, {9, 9}, {0, 9}}, 1e-300}, {-16, -16, 25, 25}},
        {{{{0, 0}, {9, 0}, {9, 9}, {0, 9}}, 2.0, {4.9, -4.9}}, {-11, -29, 33, 14}},
        {{{{kFar, 0}, {kFar + 9, 0}, {kFar + 9, 4}, {kFar, 4}}}, {kAt, 0, kAt + 9, 4}},
        {{{{-kFar, 0}, {9 - kFar, 1}, {9 - kFar, 4}, {-kFar, 4}}}, {-kAt - 16, -16, 9 - kAt + 16, 4 + 16}},
    };
    KSRaster source({0, 0, 9, 9}, "sky");
    for (const auto& [to, want] : kCopies) {
        const raster_ptr copy = Mapped(source, to);
        EXPECT_EQ(copy->Frame(), want) << "row " << &to - &kCopies[0].to;
        EXPECT_STREQ(copy->Name(), "sky");
        EXPECT_EQ(copy->GetBBitmap(), nullptr);
    }
}

TEST(Copies, AreRefusedOrThrownWithoutALockLeftBehind) {
    const raster_ptr source = MakeSource();
    KSRaster narrow({0, 0, 3, 3}, nullptr, KS_RGB16_COLOR_SPACE);
    EXPECT_EQ(narrow.CreateScaled(rect(0, 0, 3, 3), true, kRasterInMemory), nullptr);
    EXPECT_EQ(Mapped(narrow, {{{0, 0}, {3, 0}, {3, 3}, {0, 3}}}), nullptr);
    EXPECT_EQ(source->CreateScaled(rect(5, 5, 4, 9), true, kRasterInMemory), nullptr);
    for (const mapping& refused : {mapping{{{5, 0}, {3, 0}, {3, 3}, {5, 3}}, 1.0},
                                   {{{kNan, 0}, {3, 0}, {3, 3}, {0, 3}}},
                                   {{{0, 0}, {3, 1}, {3, 4}, {0, 1 / 0.0}}},
                                   {{{0, 0}, {3, 0}, {3, 3}, {0, 3}}, kNan},
                                   {{{0, 0}, {3, 0}, {3, 3}, {0, 3}}, 0, {0, kNan}}})
        EXPECT_EQ(Mapped(*source, refused), nullptr);
    EXPECT_THROW(source->CreateScaled(rect(0, 0, 99999, 99999), true, kRasterInMemory), std::bad_alloc);
    for (const mapping& thrown : {mapping{{{-1e300, 0}, {3, 1}, {1e300, 3}, {0, 3}}},
                                  {{{1e300, 0}, {2e300, 0}, {2e300, 4}, {1e300, 4}}}})
        EXPECT_THROW(Mapped(*source, thrown), std::bad_alloc);
    EXPECT_NE(Mapped(*source, {{{0, 0}, {3, 0}, {3, 3}, {0, 3}}, 1.0, {1e300, -1e300}}), nullptr);
    EXPECT_FALSE(source->IsLocked());
}

// CopyFrom takes the common block at the top left.
TEST(Copies, OfBlocksReachAsFarAsBothRasters) {
    for (const rect frame :
         {rect(50, 60, 59, 69), rect(-4, 1, -1, 4), rect(0, 0, 3, 9), rect(9, 9, 14, 14)}) {
        KSRaster source(frame, nullptr, KS_RGBA_COLOR_SPACE, kRasterInBBitmap), target({7, 8, 12, 13});
        FillWithNoise(source, 5);
        FillWithNoise(target, 6);
        Pixels want;
        ForEachPixel(target.Bounds(), [&](long x, long y) {
            const bool inside = x < source.Width() && y < source.Height();
            want.push_back(inside ? PixelAt(source, frame.left + x, frame.top + y)
                                  : PixelAt(target, 7 + x, 8 + y));
        });
        target.CopyFrom(&source);
        EXPECT_EQ(PixelsOf(target), want) << "from column " << frame.left;
        EXPECT_FALSE(source.IsLocked());
    }
    KSRaster raster({0, 0, 3, 3}), empty({0, 0, -1, -1});
    FillWithNoise(raster, 9);
    const Pixels before = PixelsOf(raster);
    for (KSRaster* source : {static_cast<KSRaster*>(nullptr), &raster, &empty})
        raster.CopyFrom(source);
    empty.CopyFrom(&raster);
    EXPECT_EQ(PixelsOf(raster), before);
}

}  // namespace
