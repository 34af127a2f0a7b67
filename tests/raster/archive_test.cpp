// SPDX-License-Identifier: MIT
// Archives, conversions in place, and copies from raster to raster.
#include "kits/BBitmap.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"
#include "toolkit/KSMessage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

using rect = KSRect<long>;
constexpr std::uint32_t kRaw = 0x52415754;

KSMessage Archived(KSRaster& raster) {
    KSMessage archive;
    raster.Archive(&archive);
    return archive;
}

TEST(Archive, HoldsTheDocumentedFields) {
    KSRaster raster({10, 10, 12, 11}, "sky");
    FillWithNoise(raster, 1);
    const KSMessage archive = Archived(raster);
    const char* name = nullptr;
    rect frame;
    std::int32_t space = 0, native = 0;
    const void* data = nullptr;
    std::size_t size = 0;
    EXPECT_EQ(archive.CountFields(), 5u);
    EXPECT_TRUE(archive.FindString("KSRaster::_name", &name));
    EXPECT_STREQ(name, "sky");
    EXPECT_TRUE(archive.FindRect("KSRaster::_frame", &frame));
    EXPECT_EQ(frame, raster.Frame());
    EXPECT_TRUE(archive.FindInt32("KSRaster::_color_space", &space));
    EXPECT_EQ(space, 3);
    EXPECT_TRUE(archive.FindInt32("KSRaster::_native", &native));
    EXPECT_EQ(native, 2);
    EXPECT_TRUE(archive.FindData("KSRaster::_data", kRaw, &data, &size));
    ASSERT_EQ(size, 24u);
    EXPECT_EQ(std::memcmp(data, raster.Bits(), size), 0);
}

TEST(Archive, ComesBackFromItsBytesWithEveryStorage) {
    const struct {
        ks_color_space space;
        ks_raster_native native;
        const char* name;
    } kKinds[] = {
        {KS_RGBA_COLOR_SPACE, kRasterInMemory, "sky"}, {KS_RGBA_COLOR_SPACE, kRasterInBBitmap, nullptr},
        {KS_GRAY8_COLOR_SPACE, kRasterInMemory, "a"},  {KS_RGB16_COLOR_SPACE, kRasterInMemory, nullptr},
        {KS_RGBA64_COLOR_SPACE, kRasterInMemory, "b"},
    };
    for (const auto& [space, native, name] : kKinds) {
        KSRaster raster({-7, 30, -3, 36}, name, space, native);
        for (std::int32_t i = 0; i < raster.BitsLength(); i++)
            static_cast<unsigned char*>(raster.Bits())[i] = static_cast<unsigned char>(i * 7);
        KSMessage copy;
        ASSERT_EQ(copy.Unflatten(Archived(raster).Flatten()), kUnflattenOk);
        EXPECT_EQ(KSRaster::ArchiveFault(&copy), nullptr);
        const KSRaster restored(&copy);
        EXPECT_EQ(restored.Frame(), raster.Frame());
        EXPECT_STREQ(restored.Name(), raster.Name());
        EXPECT_EQ(restored.ColorSpace(), space);
        EXPECT_EQ(restored.GetBBitmap() != nullptr, native == kRasterInBBitmap);
        EXPECT_EQ(restored.IsLocked(), native == kRasterInMemory);
        ASSERT_EQ(restored.BitsLength(), raster.BitsLength());
        EXPECT_EQ(std::memcmp(restored.Bits(), raster.Bits(), static_cast<std::size_t>(raster.BitsLength())),
                  0);
    }
}

TEST(Archive, TakesWhatIsThere) {
    const KSRaster none(static_cast<const KSMessage*>(nullptr));
    EXPECT_EQ(none.Frame(), rect(1, 1, -1, -1));
    EXPECT_EQ(none.Bits(), nullptr);
    EXPECT_EQ(none.BytesPerPixel(), 0);

    KSMessage archive;
    archive.AddString("KSRaster::_name", "");
    const KSRaster empty(&archive);
    EXPECT_STREQ(empty.Name(), "");
    EXPECT_EQ(empty.Frame(), rect(1, 1, -1, -1));
    EXPECT_EQ(empty.BytesPerPixel(), 4);

    archive.AddRect("KSRaster::_frame", {0, 0, 1, 0});
    archive.AddInt32("KSRaster::_native", 3);
    const KSRaster blank(&archive);
    EXPECT_TRUE(blank.IsLocked());
    EXPECT_EQ(PixelAt(blank, 1, 0), 0u);
    KSRaster(rect(0, 0, 0, 0)).Archive(nullptr);
}

TEST(Archive, CopiesPixelsAsFarAsBothReachAndReportsTheMismatch) {
    const std::uint32_t words[] = {0x11111111, 0x22222222, 0x33333333};
    for (const std::size_t size : {0u, 1u, 4u, 8u, 9u, 12u}) {
        KSMessage archive;
        archive.AddRect("KSRaster::_frame", {0, 0, 1, 0});
        archive.AddData("KSRaster::_data", kRaw, words, size);
        const KSRaster raster(&archive);
        std::uint32_t want[2] = {0, 0};
        std::memcpy(want, words, std::min<std::size_t>(size, 8));
        EXPECT_EQ(std::memcmp(raster.Bits(), want, 8), 0) << size;
        const char* fault = KSRaster::ArchiveFault(&archive);
        if (size == 8)
            EXPECT_EQ(fault, nullptr);
        else
            EXPECT_STREQ(fault, size < 8 ? "less pixel data than the frame asks for"
                                         : "more pixel data than the frame asks for");
    }
}

TEST(Archive, FaultNamesWhatTheConstructorWouldAbortOn) {
    const struct {
        rect frame;
        std::int32_t space, native;
        const char* want;
    } kArchives[] = {
        {{0, 0, 1, 1}, 3, 0, "unknown storage kind"},
        {{0, 0, 1, 1}, 3, 4, "unknown storage kind"},
        {{0, 0, 1, 1}, 2, 1, "colour space that no bitmap can hold"},
        {{0, 0, 99999, 99999}, 3, 2, "frame too large"},
        {{0, 0, 99999, 99999}, 3, 3, "frame too large"},
        {{0, 0, -1, 1}, 9, 9, "unknown storage kind"},
        {{0, 0, -1, 1}, 9, 3, nullptr},
        {{0, 0, 1, 1}, 9, 2, nullptr},
    };
    for (const auto& [frame, space, native, want] : kArchives) {
        KSMessage archive;
        archive.AddRect("KSRaster::_frame", frame);
        archive.AddInt32("KSRaster::_color_space", space);
        archive.AddInt32("KSRaster::_native", native);
        const char* fault = KSRaster::ArchiveFault(&archive);
        if (want)
            EXPECT_STREQ(fault, want);
        else
            EXPECT_EQ(fault, nullptr) << fault;
        if (want == nullptr)
            const KSRaster raster(&archive);
    }
    EXPECT_EQ(KSRaster::ArchiveFault(nullptr), nullptr);
}

// The largest frames, of which nothing is allocated, and those of one more row or column.
TEST(Archive, FaultKnowsTheLargestFrames) {
    const struct {
        ks_color_space space;
        long width, height;
    } kLargest[] = {
        {KS_GRAY8_COLOR_SPACE, 0x7FFFFFFF, 1}, {KS_GRAY8_COLOR_SPACE, 1, 0x7FFFFFFF},
        {KS_RGBA_COLOR_SPACE, 0x1FFFFFFF, 1},  {KS_RGBA_COLOR_SPACE, 1, 0x1FFFFFFF},
        {KS_RGBA_COLOR_SPACE, 256999, 2089},   {KS_RGBA64_COLOR_SPACE, 3, 89478485},
    };
    for (const auto& [space, width, height] : kLargest) {
        const auto fault_of = [kind = space](long right, long bottom) {
            KSMessage archive;
            archive.AddInt32("KSRaster::_color_space", kind);
            archive.AddRect("KSRaster::_frame", {0, 0, right, bottom});
            return KSRaster::ArchiveFault(&archive);
        };
        EXPECT_EQ(fault_of(width - 1, height - 1), nullptr) << width << " x " << height;
        EXPECT_STREQ(fault_of(width - 1, height), "frame too large") << width << " x " << height;
        EXPECT_STREQ(fault_of(width, height - 1), "frame too large") << width << " x " << height;
    }
}

TEST(ArchiveDeathTest, UnknownStorageKind) {
    KSMessage archive;
    archive.AddRect("KSRaster::_frame", {0, 0, 1, 1});
    archive.AddInt32("KSRaster::_native", 4);
    EXPECT_DEATH(KSRaster raster(&archive), "KSRaster: .*: assertion \"0\" failed");
}

TEST(Conversion, SwapsTheBytesOfPixelsOfTwoAndFour) {
    for (int space = 0; space < 6; space++) {
        KSRaster raster({0, 0, 3, 1}, nullptr, static_cast<ks_color_space>(space));
        auto* bytes = static_cast<unsigned char*>(raster.Bits());
        for (std::int32_t i = 0; i < raster.BitsLength(); i++)
            bytes[i] = static_cast<unsigned char>(i);
        const std::int32_t unit = space == 2 ? 2 : space == 3 || space == 5 ? 4 : 1;
        raster.SwapEndian();
        for (std::int32_t i = 0; i < raster.BitsLength(); i++)
            EXPECT_EQ(bytes[i], i / unit * unit + unit - 1 - i % unit) << space << ", " << i;
        raster.SwapEndian();
        for (std::int32_t i = 0; i < raster.BitsLength(); i++)
            EXPECT_EQ(bytes[i], i);
    }
}

TEST(Conversion, FillsAlphaOfWords) {
    KSRaster raster({0, 0, 4, 2}), narrow({0, 0, 4, 2}, nullptr, KS_RGB16_COLOR_SPACE);
    ForEachPixel(raster.Frame(), [&](long x, long y) { PixelAt(raster, x, y) = 0xFF123456; });
    raster.FillAlpha(0x80);
    narrow.FillAlpha(0x80);
    ForEachPixel(raster.Frame(), [&](long x, long y) { EXPECT_EQ(PixelAt(raster, x, y), 0x80123456); });
    for (std::int32_t i = 0; i < narrow.BitsLength(); i++)
        EXPECT_EQ(static_cast<unsigned char*>(narrow.Bits())[i], 0);
}

// Rasters whose rows lie differently far apart, of one frame.
std::unique_ptr<KSRaster> MakeRaster(int kind) {
    if (kind == 0)
        return std::make_unique<KSRaster>(rect(0, 0, 6, 4), "from");
    if (kind == 1)
        return std::make_unique<KSRaster>(rect(0, 0, 6, 4), "from", KS_RGBA_COLOR_SPACE, kRasterInBBitmap);
    return std::make_unique<KSRaster>(new BBitmap(BRect(-3, -2, 6, 4), B_RGB32), "from");
}

TEST(Copy, DuplicatesBetweenAllStorages) {
    for (int kind = 0; kind < 3; kind++)
        for (const auto native :
             {kRasterNativeDontChange, kRasterInMemory, kRasterInBBitmap, kRasterNativeAuto}) {
            const auto source = MakeRaster(kind);
            source->SetDrawingMode(kMergeAdd);
            FillWithNoise(*source, 3);
            const bool locked = source->IsLocked();
            const std::unique_ptr<KSRaster> copy(source->DuplicateRaster(native));
            ASSERT_NE(copy, nullptr);
            EXPECT_TRUE(SamePixels(*source, *copy)) << kind << ", " << native;
            EXPECT_EQ(copy->Frame(), source->Frame());
            EXPECT_STREQ(copy->Name(), "from");
            EXPECT_EQ(source->IsLocked(), locked);
            EXPECT_EQ(copy->GetBBitmap() != nullptr,
                      native == kRasterInBBitmap || (native == kRasterNativeDontChange && kind > 0));
        }
    const std::unique_ptr<KSRaster> empty(KSRaster(rect(5, 5, 4, 4)).DuplicateRaster());
    EXPECT_EQ(empty->Frame(), rect(5, 5, 4, 4));
}

TEST(Copy, DuplicatesEveryColourSpace) {
    for (int space = 0; space < 6; space++) {
        KSRaster source({-1, 2, 5, 4}, nullptr, static_cast<ks_color_space>(space));
        for (std::int32_t i = 0; i < source.BitsLength(); i++)
            static_cast<unsigned char*>(source.Bits())[i] = static_cast<unsigned char>(i * 7);
        const std::unique_ptr<KSRaster> copy(source.DuplicateRaster());
        EXPECT_EQ(copy->ColorSpace(), space);
        ASSERT_EQ(copy->BitsLength(), source.BitsLength());
        EXPECT_EQ(std::memcmp(copy->Bits(), source.Bits(), static_cast<std::size_t>(source.BitsLength())), 0)
            << space;
    }
}

TEST(Copy, CopiesTheCommonTopLeftBlock) {
    for (const auto native : {kRasterInMemory, kRasterInBBitmap})
        for (const rect source_frame : {rect(50, 60, 59, 69), rect(-4, 1, -1, 4), rect(0, 0, 3, 9)}) {
            KSRaster source(source_frame, nullptr, KS_RGBA_COLOR_SPACE, native), target({7, 8, 12, 13});
            FillWithNoise(source, 5);
            FillWithNoise(target, 6);
            const std::unique_ptr<KSRaster> before(target.DuplicateRaster());
            target.CopyFrom(&source);
            ForEachPixel(target.Frame(), [&](long x, long y) {
                const long dx = x - 7, dy = y - 8;
                const bool inside = dx < source.Width() && dy < source.Height();
                EXPECT_EQ(PixelAt(target, x, y),
                          inside ? PixelAt(source, source_frame.left + dx, source_frame.top + dy)
                                 : PixelAt(*before, x, y));
            });
            EXPECT_FALSE(native == kRasterInBBitmap && source.IsLocked());
        }
    KSRaster raster({0, 0, 3, 3}), empty({0, 0, -1, -1});
    FillWithNoise(raster, 9);
    const std::unique_ptr<KSRaster> before(raster.DuplicateRaster());
    raster.CopyFrom(nullptr);
    raster.CopyFrom(&raster);
    raster.CopyFrom(&empty);
    empty.CopyFrom(&raster);
    EXPECT_TRUE(SamePixels(raster, *before));
}

}  // namespace
