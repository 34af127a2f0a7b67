// SPDX-License-Identifier: MIT
// The raster as an object: storage, locks, frames, printing, and what its assertions catch.
#include "kits/BBitmap.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <string>

namespace {

using rect = KSRect<long>;
constexpr long kLeast = std::numeric_limits<long>::min(), kMost = std::numeric_limits<long>::max();

TEST(Raster, StartsTransparentAndLocked) {
    const KSRaster raster({10, 20, 13, 21});
    EXPECT_EQ(raster.Width(), 4);
    EXPECT_EQ(raster.Height(), 2);
    EXPECT_EQ(raster.BytesPerRow(), 16);
    EXPECT_EQ(raster.BitsLength(), 32);
    EXPECT_TRUE(raster.IsLocked());
    EXPECT_EQ(raster.Bounds(), rect(0, 0, 3, 1));
    EXPECT_EQ(raster.Origin(), KSPoint<long>(10, 20));
    EXPECT_EQ(raster.OptimizedFrame(), rect(1, 1, -1, -1));
    EXPECT_EQ(raster.GetBBitmap(), nullptr);
    ForEachPixel(raster.Frame(), [&](long x, long y) { EXPECT_EQ(PixelAt(raster, x, y), 0u); });
}

TEST(Raster, WithoutAFrameHasNoPixelsAndTakesAllCalls) {
    for (const rect frame : {rect(5, 5, 4, 9), rect(kMost, 0, kLeast, 0), rect(0, kMost, 5, kLeast)})
        for (const auto native : {kRasterInMemory, kRasterInBBitmap, kRasterNativeAuto}) {
            KSRaster raster(frame, "empty", KS_RGBA_COLOR_SPACE, native);
            EXPECT_TRUE(raster.IsValid());
            EXPECT_EQ(raster.Bits(), nullptr);
            EXPECT_EQ(raster.BytesPerRow(), 0);
            EXPECT_EQ(raster.BitsLength(), 0);
            EXPECT_FALSE(raster.IsLocked());
            raster.Bounds();
            raster.FillRect(kLeast, kLeast, kMost, kMost);
            raster.StrokeLine(0, 0, 9, 5);
            raster.FillEllipse(0, 0, 9, 9);
            raster.FillTriangle({0, 0}, {9, 0}, {0, 9});
            const KSPoint<long> corners[] = {{0, 0}, {9, 0}, {0, 9}};
            raster.FillPolygon(corners, 3);
            raster.Lock();
            raster.InitEmpty();
            raster.Unlock();
            raster.FillAlpha(7);
            raster.SwapEndian();
            raster.ResetOptmizedFrame();
            raster.OffsetTo(7, 7);
            raster.OffsetBy(1, 1);
            EXPECT_EQ(raster.Frame(), frame);
        }
}

TEST(Raster, TakesAsManyBytesPerPixelAsItsColourSpaceSays) {
    const std::int32_t kBytes[] = {1, 1, 2, 4, 8, 4, 4};
    for (int space = 0; space < 7; space++) {
        KSRaster raster({0, 0, 2, 1}, nullptr, static_cast<ks_color_space>(space));
        EXPECT_EQ(raster.BytesPerPixel(), kBytes[space]) << space;
        EXPECT_EQ(raster.BitsLength(), 6 * kBytes[space]) << space;
        raster.SetHighColor(1, 2, 3, 255);
        raster.FillRect(0, 0, 2, 1);
        const auto* bytes = static_cast<const unsigned char*>(raster.Bits());
        EXPECT_EQ(bytes[0], kBytes[space] == 4 ? 3 : 0) << space;
    }
}

TEST(Raster, CopiesItsName) {
    char name[] = "sky";
    const KSRaster named({0, 0, 0, 0}, name), unnamed({0, 0, 0, 0}, ""), plain({0, 0, 0, 0});
    name[0] = 'f';
    EXPECT_STREQ(named.Name(), "sky");
    EXPECT_STREQ(unnamed.Name(), "KSRaster");
    EXPECT_STREQ(plain.Name(), "KSRaster");
}

TEST(Raster, CannotBeLargerThanItsLengthCanSay) {
    const rect kTooLarge[] = {
        {0, 0, 32767, 16384}, {0, 0, 0x1FFFFFFF, 0}, {kLeast, 0, kMost, 0}, {0, kLeast, 0, kMost}};
    for (const rect& frame : kTooLarge)
        for (const auto native : {kRasterInMemory, kRasterInBBitmap})
            EXPECT_THROW(KSRaster(frame, "name", KS_RGBA_COLOR_SPACE, native), std::bad_alloc);
    const KSRaster far({kMost - 2, kLeast, kMost, kLeast + 1});
    EXPECT_EQ(far.BitsLength(), 24);
}

TEST(Raster, KeepsABitmapAsSmallAsItsFrame) {
    KSRaster raster({16777217, 3000000, 16777219, 3000001}, nullptr, KS_RGBA_COLOR_SPACE, kRasterInBBitmap);
    EXPECT_EQ(raster.Bits(), raster.GetBBitmap()->Bits());
    EXPECT_EQ(raster.BytesPerRow(), 12);
    EXPECT_EQ(raster.GetBBitmap()->BitsLength(), 24);
    EXPECT_EQ(raster.GetBBitmap()->ColorSpace(), B_RGB32);
    EXPECT_FALSE(raster.IsLocked());
    raster.FillRect(raster.Frame());
    EXPECT_EQ(PixelAt(raster, 16777219, 3000001), 0xFFFFFFFF);
}

TEST(Raster, StartsAdoptedBitmapsAtTheOrigin) {
    const struct {
        BRect bounds;
        rect want;
    } kBounds[] = {
        {{0, 0, 63, 31}, {0, 0, 63, 31}},
        {{5, 5, 63.9F, 31.9F}, {0, 0, 63, 31}},
        {{-5, -7, 3, 2}, {0, 0, 3, 2}},
        {{-9, -9, -0.5F, -0.5F}, {0, 0, 0, 0}},
    };
    for (const auto& [bounds, want] : kBounds) {
        KSRaster raster(new BBitmap(bounds, B_RGB32), "adopted");
        EXPECT_EQ(raster.Frame(), want);
        EXPECT_STREQ(raster.Name(), "adopted");
        raster.FillRect(raster.Frame());
        ForEachPixel(want, [&](long x, long y) { EXPECT_EQ(PixelAt(raster, x, y), 0xFFFFFFFF); });
    }
}

TEST(Raster, AdoptsBitmapsWithoutPixels) {
    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    for (const BRect bounds : {BRect(0, 0, -1, -1), BRect(-9, -9, -3, -3), BRect(100, 0, 63, 31),
                               BRect(nan, 0, 3, nan), BRect(inf, inf, -inf, 3)}) {
        KSRaster raster(new BBitmap(bounds, B_RGB32));
        raster.FillRect(kLeast, kLeast, kMost, kMost);
        raster.FillAlpha(1);
        raster.SwapEndian();
        raster.ResetOptmizedFrame();
        raster.Lock();
        raster.InitEmpty();
        raster.Unlock();
        EXPECT_EQ(raster.BitsLength(), 0);
    }
    const KSRaster endless(new BBitmap(BRect(0, 9, inf, 3), B_RGB32));
    EXPECT_TRUE(endless.Frame().IsValid());
    EXPECT_EQ(endless.Bits(), nullptr);
    const KSRaster none(static_cast<BBitmap*>(nullptr));
    EXPECT_EQ(none.Frame(), rect(0, 0, -1, -1));
}

TEST(Raster, MovesBothFrames) {
    KSRaster raster({10, 20, 13, 21});
    PixelAt(raster, 12, 21) = 0x01000000;
    raster.ResetOptmizedFrame();
    EXPECT_EQ(raster.OptimizedFrame(), rect(12, 21, 12, 21));
    raster.OffsetTo(0, 0);
    EXPECT_EQ(raster.Frame(), rect(0, 0, 3, 1));
    EXPECT_EQ(raster.OptimizedFrame(), rect(2, 1, 2, 1));
    raster.OffsetBy({-5, 6});
    EXPECT_EQ(raster.Frame(), rect(-5, 6, -2, 7));
    EXPECT_EQ(PixelAt(raster, -3, 7), 0x01000000u);

    KSRaster blank({0, 0, 1, 1});
    blank.OffsetBy(10, 20);
    EXPECT_EQ(blank.OptimizedFrame(), rect(11, 21, 9, 19));
}

TEST(Raster, StaysWhereItIsRatherThanLeaveTheRange) {
    KSRaster raster({10, 20, 13, 21});
    for (const KSPoint<long> delta :
         {KSPoint<long>(kMost, 0), {kMost - 12, 0}, {0, kMost - 20}, {0, kLeast}, {kLeast, kLeast}}) {
        raster.OffsetBy(delta);
        EXPECT_EQ(raster.Frame(), rect(10, 20, 13, 21));
    }
    raster.OffsetTo(kMost, kMost);
    raster.OffsetTo(0, kLeast);
    raster.OffsetTo(kLeast, kLeast);
    EXPECT_EQ(raster.Frame(), rect(10, 20, 13, 21));
}

TEST(Raster, FindsTheBoxOfVisiblePixels) {
    KSRaster raster({-2, -3, 7, 6});
    const auto check = [&] {
        rect want;
        ForEachPixel(raster.Frame(), [&](long x, long y) {
            if (PixelAt(raster, x, y) >> 24 == 0)
                return;
            want = want.IsValid() ? rect(std::min(want.left, x), std::min(want.top, y),
                                         std::max(want.right, x), std::max(want.bottom, y))
                                  : rect(x, y, x, y);
        });
        raster.ResetOptmizedFrame();
        EXPECT_EQ(raster.OptimizedFrame(), want);
    };
    std::mt19937 random(7);
    for (int i = 0; i < 200; i++) {
        const auto ones = static_cast<int>(random() % 4);
        ForEachPixel(raster.Frame(), [&](long x, long y) { PixelAt(raster, x, y) = 0x00FFFFFF; });
        for (int k = 0; k < ones; k++)
            PixelAt(raster, -2 + static_cast<long>(random() % 10), -3 + static_cast<long>(random() % 10)) |=
                0x01000000;
        check();
    }
    KSRaster other({0, 0, 1, 1}, nullptr, KS_RGBA64_COLOR_SPACE);
    other.InitEmpty();
    other.ResetOptmizedFrame();
    EXPECT_EQ(other.OptimizedFrame(), rect(1, 1, -1, -1));
}

TEST(Raster, BecomesWhiteOnlyWhileLocked) {
    KSRaster raster(new BBitmap(BRect(0, 0, 2, 2), B_RGB32));
    raster.InitEmpty();
    EXPECT_EQ(PixelAt(raster, 2, 2), 0u);
    raster.Lock();
    raster.InitEmpty();
    raster.Unlock();
    EXPECT_EQ(PixelAt(raster, 2, 2), 0xFFFFFFFF);
}

TEST(Raster, PrintsItsFrame) {
    const auto printed = [](const KSRaster& raster, const char* label) {
        testing::internal::CaptureStdout();
        raster.PrintToStream(label);
        return testing::internal::GetCapturedStdout();
    };
    const std::string frame =
        "KSRect  Frame for KSRaster:\n    l:0.00 | t:0.00 | r:9.00 | b:4.00 | w:10.00 | h:5.00\n";
    const KSRaster plain({0, 0, 9, 4}), named({0, 0, 9, 4}, "sky"), invalid({5, 5, 4, 9});
    EXPECT_EQ(printed(plain, nullptr), "KSRaster 'no name'\n" + frame);
    EXPECT_EQ(printed(plain, "here"), "KSRaster 'no name, here\n" + frame);
    EXPECT_EQ(printed(named, nullptr), "KSRaster sky\n" + frame);
    EXPECT_EQ(printed(named, "here"), "KSRaster sky, here\n" + frame);
    EXPECT_EQ(printed(invalid, nullptr), "KSRaster 'no name'\nInvalid KSRect  Frame for KSRaster:\n"
                                         "    l:5.00 | t:5.00 | r:4.00 | b:9.00 | w:0.00 | h:5.00\n");
}

TEST(RasterDeathTest, NamesConditionFileAndFunction) {
    const auto unlock_twice = [] {
        KSRaster raster({0, 0, 1, 1});
        raster.Unlock();
        raster.Unlock();
    };
    EXPECT_DEATH(unlock_twice(), "KSRaster: Unlock: assertion \"_lock_count > 0\" failed");
    const auto keep_lock = [] { KSRaster({0, 0, 1, 1}).Lock(); };
    EXPECT_DEATH(keep_lock(), "KSRaster: ~KSRaster: assertion \"_lock_count == 0\" failed");
    EXPECT_DEATH(KSRaster({5, 5, 4, 4}, nullptr, KS_RGBA_COLOR_SPACE, kRasterNativeDontChange),
                 "KSRaster: KSRaster: assertion \"_native != kRasterNativeDontChange\" failed");
    EXPECT_DEATH(KSRaster({0, 0, 1, 1}, nullptr, KS_RGB16_COLOR_SPACE, kRasterInBBitmap),
                 "KSRaster: .*: assertion \"_color_space == KS_RGBA_COLOR_SPACE\" failed");
    EXPECT_DEATH(KSRaster({0, 0, 1, 1}, nullptr, KS_RGBA_COLOR_SPACE, static_cast<ks_raster_native>(4)),
                 "KSRaster: .*: assertion \"0\" failed");
    const auto wrong_mode = [] {
        KSRaster raster({0, 0, 1, 1});
        raster.SetDrawingMode(static_cast<ks_composition_mode>(22));
        raster.FillRect(0, 0, 1, 1);
    };
    EXPECT_DEATH(wrong_mode(), "_mode < kMergeCount");
}

}  // namespace
