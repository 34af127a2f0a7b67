// SPDX-License-Identifier: MIT
// Archives: their fields, and what is made of those that come from outside.
#include "exchange/KSMessage.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"

#include <gtest/gtest.h>

#include <bit>
#include <string>

namespace {

using rect = KSRect<long>;
constexpr std::uint32_t kRaw = 0x52415754;
constexpr std::int32_t kNone = -1;
constexpr char kBytes[] = "twelve bytes";
constexpr char kTooLarge[] = "frame too large";

// Returns an archive of these fields and of the first `size` of kBytes; kNone leaves a field out.
KSMessage Archived(rect frame, std::int32_t space = kNone, std::int32_t native = kNone,
                   std::int32_t size = kNone) {
    KSMessage archive;
    archive.AddRect("KSRaster::_frame", frame);
    if (space != kNone)
        archive.AddInt32("KSRaster::_color_space", space);
    if (native != kNone)
        archive.AddInt32("KSRaster::_native", native);
    if (size != kNone)
        archive.AddData("KSRaster::_data", kRaw, kBytes, static_cast<std::size_t>(size));
    return archive;
}

TEST(Archive, HoldsTheDocumentedFields) {
    KSRaster raster({10, 10, 12, 11}, "sky");
    FillWithNoise(raster, 1);
    KSMessage archive, want;
    raster.Archive(&archive);
    raster.Archive(nullptr);
    want.AddString("KSRaster::_name", "sky");
    want.AddRect("KSRaster::_frame", {10, 10, 12, 11});
    want.AddInt32("KSRaster::_color_space", 3);
    want.AddInt32("KSRaster::_native", 2);
    want.AddData("KSRaster::_data", kRaw, raster.Bits(), 24);
    EXPECT_EQ(archive.Flatten(), want.Flatten());
}

// What processors of both byte orders write; either reads both. Only the pixels differ.
TEST(Archive, TravelsBetweenByteOrders) {
    using namespace std::literals;
    const auto fields = "MESG\1\0\0\0\xCA\0\0\0\0\0\0\0\4\0\0\0"
                        "TCRK\x10\0\0\0\x20\0\0\0\0\0\0\0KSRaster::_frame"
                        "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\7\0\0\0\0\0\0\0"
                        "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\7\0\0\0\0\0\0\0"
                        "GNOL\x16\0\0\0\4\0\0\0\0\0\0\0KSRaster::_color_space\3\0\0\0"
                        "GNOL\x11\0\0\0\4\0\0\0\0\0\0\0KSRaster::_native\2\0\0\0"
                        "TWAR\xF\0\0\0\x8\0\0\0\0\0\0\0KSRaster::_data"s;
    for (const auto& [order, pixels] : {std::pair(std::endian::little, "\x44\x33\x22\x11\xDD\xCC\xBB\xAA"),
                                        {std::endian::big, "\x11\x22\x33\x44\xAA\xBB\xCC\xDD"}}) {
        const std::string text = fields + pixels;
        const std::vector<std::uint8_t> bytes(text.begin(), text.end());
        KSMessage read, written;
        ASSERT_EQ(read.Unflatten(bytes), kUnflattenOk);
        KSRaster raster(&read);
        raster.Archive(&written);
        EXPECT_EQ(written.Flatten(), bytes);
        if (order != std::endian::native)
            raster.SwapEndian();
        EXPECT_EQ(PixelAt(raster, -2, 7), 0x11223344u);
        EXPECT_EQ(PixelAt(raster, -1, 7), 0xAABBCCDDu);
    }
}

TEST(Archive, MayLackFields) {
    KSMessage archive;
    archive.AddString("KSRaster::_name", "");
    const KSRaster none(static_cast<const KSMessage*>(nullptr)), empty(&archive);
    EXPECT_STREQ(empty.Name(), "");
    for (const KSRaster* raster : {&none, &empty}) {
        EXPECT_EQ(raster->Frame(), rect(1, 1, -1, -1));
        EXPECT_EQ(raster->Bits(), nullptr);
        EXPECT_EQ(raster->BytesPerPixel(), raster == &none ? 0 : 4);
    }
}

// Pixels are copied as far as both the archive and the raster reach.
TEST(Archive, NamesItsFault) {
    constexpr char kUnknown[] = "unknown storage kind", kBitmap[] = "colour space that no bitmap can hold",
                   kLess[] = "less pixel data than the frame asks for",
                   kMore[] = "more pixel data than the frame asks for";
    const rect four(0, 0, 1, 1), pair(0, 0, 1, 0), large(0, 0, 99999, 99999), empty(0, 0, -1, 1);
    const struct {
        rect frame;
        std::int32_t space, native, size;
        const char* want;
    } kArchives[] = {
        {four, 3, 0, kNone, kUnknown},  {four, 3, 4, kNone, kUnknown},   {empty, 9, 9, kNone, kUnknown},
        {four, 2, 1, kNone, kBitmap},   {large, 3, 2, kNone, kTooLarge}, {large, 3, 3, kNone, kTooLarge},
        {empty, 9, 3, kNone, nullptr},  {four, 9, 2, kNone, nullptr},    {pair, kNone, 3, 0, kLess},
        {pair, kNone, kNone, 1, kLess}, {pair, kNone, kNone, 7, kLess},  {pair, kNone, kNone, 8, nullptr},
        {pair, kNone, kNone, 9, kMore}, {pair, kNone, kNone, 12, kMore},
    };
    for (const auto& [frame, space, native, size, want] : kArchives) {
        SCOPED_TRACE(&frame - &kArchives[0].frame);
        const KSMessage archive = Archived(frame, space, native, size);
        EXPECT_STREQ(KSRaster::ArchiveFault(&archive), want);
        if (want != nullptr && size == kNone)
            continue;
        const KSRaster raster(&archive);
        std::string bytes(kBytes, size == kNone ? 0 : static_cast<std::size_t>(size));
        bytes.resize(BytesOf(raster).size());
        EXPECT_EQ(std::string(BytesOf(raster).begin(), BytesOf(raster).end()), bytes);
    }
    EXPECT_EQ(KSRaster::ArchiveFault(nullptr), nullptr);
}

// The largest frames, of which nothing is allocated, and those of one more row or column.
TEST(Archive, KnowsTheLargestFrames) {
    const struct {
        ks_color_space space;
        long width, height;
    } kLargest[] = {
        {KS_GRAY8_COLOR_SPACE, 0x7FFFFFFF, 1}, {KS_GRAY8_COLOR_SPACE, 1, 0x7FFFFFFF},
        {KS_RGBA_COLOR_SPACE, 0x1FFFFFFF, 1},  {KS_RGBA_COLOR_SPACE, 1, 0x1FFFFFFF},
        {KS_RGBA_COLOR_SPACE, 256999, 2089},   {KS_RGBA64_COLOR_SPACE, 3, 89478485},
    };
    for (const auto& [space, width, height] : kLargest)
        for (const auto& [left, top] : {std::pair(1, 1), {0, 1}, {1, 0}}) {
            const KSMessage archive = Archived({left, top, width, height}, space);
            EXPECT_STREQ(KSRaster::ArchiveFault(&archive), left + top == 2 ? nullptr : kTooLarge)
                << width << " x " << height;
        }
}

}  // namespace
