// SPDX-License-Identifier: MIT
// The raster as an object: storage and its copies, locks, frames, printing, and what its assertions catch.
#include "tests/raster/everything.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <new>

namespace {

constexpr long kLeast = std::numeric_limits<long>::min(), kMost = std::numeric_limits<long>::max();

TEST(Raster, StartsTransparent) {
    const KSRaster raster({10, 20, 13, 21});
    EXPECT_EQ(raster.Width(), 4);
    EXPECT_EQ(raster.Height(), 2);
    EXPECT_EQ(raster.BytesPerRow(), 16);
    EXPECT_EQ(raster.Bounds(), rect(0, 0, 3, 1));
    EXPECT_EQ(raster.Origin(), point(10, 20));
    EXPECT_EQ(raster.OptimizedFrame(), rect(1, 1, -1, -1));
    EXPECT_EQ(PixelsOf(raster), std::vector<std::uint32_t>(8));
}

// Each way to keep pixels.
struct storage {
    int space;
    ks_raster_native native;
    std::int32_t bytes;    // of a pixel
    std::int32_t swapped;  // how many bytes SwapEndian reverses
};

constexpr storage kStorages[] = {
    {0, kRasterInMemory, 1, 1}, {1, kRasterInMemory, 1, 1},  {2, kRasterInMemory, 2, 2},
    {3, kRasterInMemory, 4, 4}, {3, kRasterInBBitmap, 4, 4}, {4, kRasterInMemory, 8, 1},
    {5, kRasterInMemory, 4, 4}, {6, kRasterInMemory, 4, 4},
};

TEST(Raster, ComesBackFromArchivesAndDuplicates) {
    for (const storage& kind : kStorages) {
        SCOPED_TRACE(&kind - kStorages);
        const auto space = static_cast<ks_color_space>(kind.space);
        KSRaster raster({-7, 30, -3, 36}, kind.space % 2 ? "sky" : nullptr, space, kind.native);
        raster.SetDrawingMode(kMergeAdd);
        FillWithNoise(raster, 1);
        KSMessage archive, read;
        raster.Archive(&archive);
        ASSERT_EQ(read.Unflatten(archive.Flatten()), kUnflattenOk);
        EXPECT_EQ(KSRaster::ArchiveFault(&read), nullptr);
        const KSRaster restored(&read);
        const std::unique_ptr<KSRaster> duplicate(raster.DuplicateRaster());
        for (const KSRaster* copy : {&restored, static_cast<const KSRaster*>(duplicate.get())}) {
            EXPECT_EQ(copy->Frame(), raster.Frame());
            EXPECT_STREQ(copy->Name(), raster.Name());
            EXPECT_EQ(copy->ColorSpace(), space);
            EXPECT_EQ(copy->BytesPerPixel(), kind.bytes);
            EXPECT_EQ(copy->BitsLength(), 35 * kind.bytes);
            EXPECT_EQ(copy->GetBBitmap() != nullptr, kind.native == kRasterInBBitmap);
            EXPECT_EQ(copy->IsLocked(), kind.native == kRasterInMemory);
            EXPECT_TRUE(SameBytes(*copy, raster));
        }
    }
}

TEST(Raster, SwapsFillsAndPaintsByTheSizeOfPixels) {
    constexpr std::size_t kAlpha = std::endian::native == std::endian::little ? 3 : 0;
    for (const storage& kind : kStorages) {
        SCOPED_TRACE(&kind - kStorages);
        KSRaster raster({0, 0, 3, 1}, nullptr, static_cast<ks_color_space>(kind.space), kind.native);
        FillWithNoise(raster, 2);
        const auto bytes = [&] { return std::vector(BytesOf(raster).begin(), BytesOf(raster).end()); };
        auto want = bytes();
        raster.SwapEndian();
        for (auto unit = want.begin(); unit != want.end(); unit += kind.swapped)
            std::reverse(unit, unit + kind.swapped);
        EXPECT_EQ(bytes(), want);
        raster.FillAlpha(0x80);
        for (std::size_t i = kAlpha; kind.bytes == 4 && i < want.size(); i += 4)
            want[i] = 0x80;
        EXPECT_EQ(bytes(), want);
        raster.SetHighColor(1, 2, 3, 255);
        raster.FillRect(raster.Frame());
        EXPECT_EQ(BytesOf(raster)[3 - kAlpha], kind.bytes == 4 ? 3 : want[3 - kAlpha]);
    }
}

TEST(Raster, WithoutAFrameHasNoPixelsAndTakesAllCalls) {
    for (const rect frame : {rect(5, 5, 4, 9), rect(kMost, 0, kLeast, 0), rect(0, kMost, 5, kLeast)})
        for (const auto native : {kRasterInMemory, kRasterInBBitmap, kRasterNativeAuto}) {
            KSRaster raster(frame, "empty", KS_RGBA_COLOR_SPACE, native);
            CallEverything(raster);
            EXPECT_TRUE(raster.IsValid());
            EXPECT_EQ(raster.Bits(), nullptr);
            EXPECT_EQ(raster.BytesPerRow(), 0);
            EXPECT_EQ(raster.BitsLength(), 0);
            EXPECT_FALSE(raster.IsLocked());
            EXPECT_EQ(raster.Frame(), frame);
        }
}

TEST(Raster, CannotBeLargerThanItsLengthCanSay) {
    for (const rect& frame :
         {rect(0, 0, 32767, 16384), {0, 0, 0x1FFFFFFF, 0}, {kLeast, 0, kMost, 0}, {0, kLeast, 0, kMost}})
        for (const auto native : {kRasterInMemory, kRasterInBBitmap})
            EXPECT_THROW(KSRaster(frame, "name", KS_RGBA_COLOR_SPACE, native), std::bad_alloc);
    EXPECT_EQ(KSRaster({kMost - 2, kLeast, kMost, kLeast + 1}).BitsLength(), 24);
}

TEST(Raster, KeepsABitmapAsSmallAsItsFrame) {
    KSRaster raster({16777217, 3000000, 16777219, 3000001}, nullptr, KS_RGBA_COLOR_SPACE, kRasterInBBitmap);
    EXPECT_EQ(raster.Bits(), raster.GetBBitmap()->Bits());
    EXPECT_EQ(raster.BytesPerRow(), 12);
    EXPECT_EQ(raster.GetBBitmap()->BitsLength(), 24);
    EXPECT_EQ(raster.GetBBitmap()->ColorSpace(), B_RGB32);
    raster.FillRect(raster.Frame());
    EXPECT_EQ(PixelAt(raster, 16777219, 3000001), 0xFFFFFFFF);
}

// Bitmaps hold all columns and rows from 0 on. Their rasters start at the origin.
TEST(Raster, AdoptsBitmaps) {
    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    const struct {
        BRect bounds;
        std::int32_t bytes_per_row, rows;
        rect want;
    } kBitmaps[] = {
        {{5, 5, 63.9F, 31.9F}, 256, 32, {0, 0, 63, 31}}, {{-5, -7, 3, 2}, 36, 10, {0, 0, 3, 2}},
        {{-9, -9, -0.5F, -0.5F}, 36, 9, {0, 0, 0, 0}},   {{-9, -9, -3, -3}, 28, 7, {0, 0, -3, -3}},
        {{-0.5F, 0, -0.5F, 0.5F}, 4, 1, {0, 0, 0, 0}},   {{100, 0, 63, 31}, 0, 0, {0, 0, 63, 31}},
        {{nan, 0, 3, nan}, 0, 0, {0, 0, 3, -1}},         {{inf, inf, -inf, 3}, 0, 0, {0, 0, -1, 3}},
    };
    for (const auto& [bounds, bytes_per_row, rows, want] : kBitmaps) {
        SCOPED_TRACE(&bounds - &kBitmaps[0].bounds);
        auto* bitmap = new BBitmap(bounds, B_RGB32, true, true);
        KSRaster raster(bitmap, "adopted");
        EXPECT_EQ(bitmap->BytesPerRow(), bytes_per_row);
        EXPECT_EQ(bitmap->BitsLength(), bytes_per_row * rows);
        EXPECT_EQ(bitmap->Bits() == nullptr, rows == 0);
        EXPECT_EQ(raster.GetBBitmap(), bitmap);
        EXPECT_EQ(raster.Frame(), want);
        raster.FillRect(kLeast, kLeast, kMost, kMost);
        const std::vector<std::uint32_t> pixels = rows > 0 ? PixelsOf(raster) : std::vector<std::uint32_t>();
        EXPECT_TRUE(std::ranges::all_of(pixels, [](std::uint32_t pixel) { return pixel == 0xFFFFFFFF; }));
        CallEverything(raster);
        EXPECT_STREQ(raster.Name(), "adopted");
    }
    const KSRaster endless(new BBitmap(BRect(0, 9, inf, 3), B_RGB32));
    EXPECT_TRUE(endless.Frame().IsValid());
    EXPECT_EQ(endless.Bits(), nullptr);
    const KSRaster none(static_cast<BBitmap*>(nullptr));
    EXPECT_EQ(none.Frame(), rect(0, 0, -1, -1));
    for (const BRect bounds : {BRect(0, 0, 1e30F, 0), BRect(0, 0, 32767, 16384), BRect(1e9F, 0, 1e9F, 0)})
        EXPECT_THROW(BBitmap(bounds, B_RGB32), std::bad_alloc);
}

// One that would leave the range of its coordinates stays where it is.
TEST(Raster, MovesBothFrames) {
    KSRaster raster({10, 20, 13, 21}), blank({0, 0, 1, 1});
    for (const point by : {point(kMost, 0), {kMost - 12, 0}, {0, kMost - 20}, {0, kLeast}, {kLeast, kLeast}})
        raster.OffsetBy(by);
    for (const point to : {point(kMost, kMost), {0, kLeast}, {kLeast, kLeast}})
        raster.OffsetTo(to);
    EXPECT_EQ(raster.Frame(), rect(10, 20, 13, 21));
    PixelAt(raster, 12, 21) = 0x01000000;
    raster.ResetOptmizedFrame();
    raster.OffsetTo(0, 0);
    EXPECT_EQ(raster.Frame(), rect(0, 0, 3, 1));
    raster.OffsetBy({-5, 6});
    EXPECT_EQ(raster.OptimizedFrame(), rect(-3, 7, -3, 7));
    EXPECT_EQ(PixelAt(raster, -3, 7), 0x01000000u);
    blank.OffsetBy(10, 20);
    EXPECT_EQ(blank.OptimizedFrame(), rect(11, 21, 9, 19));
}

TEST(Raster, DrawsByNumbersCornersAndRectangles) {
    const auto drawn = [](auto... box) {
        side_by_side target({0, 0, 9, 9});
        target.raster.FillRect(box...);
        target.raster.StrokeRect(box...);
        target.raster.StrokeLine(box...);
        target.raster.FillEllipse(box...);
        target.raster.StrokeEllipse(box...);
        target.raster.PutPixel(point(1, 0));
        return PixelsOf(target.raster);
    };
    EXPECT_EQ(drawn(point(1, 2), point(7, 5)), drawn(1, 2, 7, 5));
    EXPECT_EQ(drawn(rect(1, 2, 7, 5)), drawn(1, 2, 7, 5));
    EXPECT_EQ(drawn(1, 2, 7, 5)[1], 0xFF000001);
}

TEST(Raster, FindsTheBoxOfVisiblePixels) {
    Noise noise(7);
    for (int i = 0; i < 200; i++) {
        KSRaster raster({-2, -3, 7, 6});
        const point a(noise.In(-2, 7), noise.In(-3, 6)), b(noise.In(-2, 7), noise.In(-3, 6));
        PixelAt(raster, a.x, a.y) = PixelAt(raster, b.x, b.y) = 0x01000000;
        raster.ResetOptmizedFrame();
        EXPECT_EQ(raster.OptimizedFrame(),
                  rect(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)));
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

TEST(Raster, CopiesItsNameAndPrintsItsFrame) {
    const std::string frame =
        "KSRect  Frame for KSRaster:\n    l:0.00 | t:0.00 | r:9.00 | b:4.00 | w:10.00 | h:5.00\n";
    char name[] = "sky";
    const KSRaster unnamed({0, 0, 9, 4}, ""), named({0, 0, 9, 4}, name);
    name[0] = 'f';
    EXPECT_STREQ(unnamed.Name(), "KSRaster");
    testing::internal::CaptureStdout();
    for (const KSRaster* raster : {&unnamed, &named}) {
        raster->PrintToStream();
        raster->PrintToStream("here");
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "KSRaster 'no name'\n" + frame + "KSRaster 'no name, here\n" + frame + "KSRaster sky\n" +
                  frame + "KSRaster sky, here\n" + frame);
}

TEST(RasterDeathTest, NamesConditionFileAndFunction) {
    EXPECT_DEATH(
        {
            KSRaster raster({0, 0, 1, 1});
            raster.Unlock();
            raster.Unlock();
        },
        "KSRaster: Unlock: assertion \"_lock_count > 0\" failed");
    EXPECT_DEATH(KSRaster({0, 0, 1, 1}).Lock(), "KSRaster: ~KSRaster: assertion \"_lock_count == 0\" failed");
    EXPECT_DEATH(KSRaster({5, 5, 4, 4}, nullptr, KS_RGBA_COLOR_SPACE, kRasterNativeDontChange),
                 "KSRaster: KSRaster: assertion \"_native != kRasterNativeDontChange\" failed");
    EXPECT_DEATH(KSRaster({0, 0, 1, 1}, nullptr, KS_RGB16_COLOR_SPACE, kRasterInBBitmap),
                 "KSRaster: .*: assertion \"_color_space == KS_RGBA_COLOR_SPACE\" failed");
    EXPECT_DEATH(KSRaster({0, 0, 1, 1}, nullptr, KS_RGBA_COLOR_SPACE, static_cast<ks_raster_native>(4)),
                 "assertion \"_native == kRasterInMemory ");
    KSRaster raster({0, 0, 1, 1});
    raster.SetDrawingMode(static_cast<ks_composition_mode>(22));
    EXPECT_DEATH(raster.FillRect(0, 0, 1, 1), "_mode < kMergeCount");
}

// The bytes between its rows stay as they are.
TEST(Raster, WorksOnMemoryOfTheCallers) {
    std::vector<std::uint32_t> memory(7 * 5, 0x12345678), want = memory;
    KSRaster raster(memory.data(), 28, {10, 20, 13, 24}, "view");
    KSRaster other({0, 0, 8, 8});
    FillWithNoise(other, 4);
    CallEverything(raster);
    raster.InitEmpty();
    raster.OffsetTo(10, 20);
    raster.CopyFrom(&other);
    raster.SwapEndian();
    raster.FillAlpha(9);
    KSMessage archive;
    raster.Archive(&archive);
    EXPECT_EQ(KSRaster::ArchiveFault(&archive), nullptr);
    const KSRaster restored(&archive), moved(std::move(raster));
    const auto duplicate = moved.Duplicate();
    EXPECT_EQ(raster.Bits(), nullptr);
    EXPECT_EQ(moved.Bits(), memory.data());
    ForEachPixel(moved.Frame(), [&](long x, long y) {
        const std::uint32_t word = __builtin_bswap32(PixelAt(other, x - 10, y - 20));
        want[static_cast<std::size_t>((y - 20) * 7 + x - 10)] = (word & 0xFFFFFF) | 0x09000000;
    });
    EXPECT_EQ(memory, want);
    for (const KSRaster* copy : {&restored, static_cast<const KSRaster*>(duplicate.get())})
        EXPECT_EQ(PixelsOf(*copy), PixelsOf(moved));
    std::vector<KSRaster> rasters;
    rasters.emplace_back(rect(0, 0, 3, 3), "first");
    rasters.push_back(std::move(other));
    rasters.front() = std::move(rasters.back());
    EXPECT_EQ(rasters.front().Width(), 9);
    EXPECT_THROW(KSRaster(memory.data(), 1 << 30, {0, 0, 0, 1}), std::bad_alloc);
}

TEST(Raster, FitsIntoBoxes) {
    const KSRaster wide({5, 5, 404, 204});
    const rect rows[][2] = {{{0, 0, 99, 99}, {0, 25, 99, 74}},
                            {{-50, 0, 949, 49}, {400, 0, 499, 49}},
                            {{0, 0, 999, 999}, {300, 400, 699, 599}},
                            {{3, 3, 3, 3}, {3, 3, 3, 3}},
                            {{3, 3, 2, 2}, {}}};
    for (const auto& [box, fitted] : rows)
        EXPECT_EQ(wide.FittedInto(box), fitted);
    const auto reduced = wide.Reduced(wide.FittedInto({0, 0, 99, 99}));
    EXPECT_EQ(reduced->Frame(), rect(0, 25, 99, 74));
}

}  // namespace
