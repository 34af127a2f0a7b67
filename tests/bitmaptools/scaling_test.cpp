// SPDX-License-Identifier: MIT
// Scaling equals its definition at every level, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <climits>

namespace {

constexpr Word kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF;

void ExpectScaled(Noise& noise, TestImage& source, long width, long height) {
    TestImage destination(noise, width, height);
    const auto scale = [&](auto function, const Word* from, Word* to) {
        function(static_cast<int>(source.width), static_cast<int>(source.height), static_cast<int>(width),
                 static_cast<int>(height), from, to, static_cast<int>(source.row_length),
                 static_cast<int>(destination.row_length));
    };
    using Oracle = reference::BitmapTools;
    ExpectLikeReference(noise, source, destination, KSBitmapTools::ScalePlain, Oracle::ScalePlain, scale);
    ExpectLikeReference(noise, source, destination, KSBitmapTools::ScaleBiLin, Oracle::ScaleBiLin, scale);
}

TEST(Scaling, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 400 && !HasFailure(); ++seed) {
        Noise noise(seed);
        TestImage source(noise, Size(noise), Size(noise));
        ExpectScaled(noise, source, Size(noise), Size(noise));
        ExpectScaled(noise, source, source.width, source.height);
    }
}

// Steps of whole pixels, of less than 1/4096 of a pixel (none), and of more than a block at once; sources of
// more than 2^19 pixels, where a position no longer fits 32 bits. Rows of length 0 make a high source cheap.
TEST(Scaling, EqualsItsDefinitionAtExtremeRatios) {
    constexpr int kAny = -1, kLarge = (1 << 19) + 3, kLarger = (1 << 20) + 1;
    const struct {
        int width, height, row_length, to_width, to_height;
    } rows[] = {
        {1, 1, kAny, 300, 3},      {2, 2, kAny, 9000, 2},   {3, 1, kAny, 5000, 1},
        {9000, 2, kAny, 2, 2},     {5000, 1, kAny, 1, 1},   {640, 4, kAny, 320, 2},
        {900, 3, kAny, 300, 1},    {16, 3, kAny, 4096, 12}, {4096, 2, kAny, 16, 2},
        {130, 1, kAny, 131, 1},    {131, 1, kAny, 130, 1},  {1, 70, kAny, 70, 1},
        {kLarge, 2, kAny, 70, 3},  {1, kLarge, 0, 2, 70},   {kLarge, 2, kAny, kLarge, 1},
        {kLarger, 2, kAny, 70, 3}, {1, kLarger, 0, 2, 70},  {kLarger, 2, kAny, kLarger, 1},
        {1, INT_MAX, 0, 1, 3},
    };
    for (const auto& row : rows)
        for (std::uint32_t seed = 0; seed < 3 && !HasFailure(); ++seed) {
            Noise noise(seed);
            TestImage source(noise, row.width, row.height, row.row_length);
            ExpectScaled(noise, source, row.to_width, row.to_height);
        }
}

TEST(Scaling, WorkedValues) {
    const struct {
        const char* name;
        decltype(&KSBitmapTools::ScalePlain) scale;
        int size, to_size;
        std::vector<Word> source, want;
    } rows[] = {
        {"PlainTwoToThree",
         KSBitmapTools::ScalePlain,
         2,
         3,
         {kRed, kBlue, kGreen, kWhite},
         {kRed, kRed, kBlue, kRed, kRed, kBlue, kGreen, kGreen, kWhite}},
        {"BilinearOneToTwo",
         KSBitmapTools::ScaleBiLin,
         1,
         2,
         {kWhite},
         {0x40FFFFFF, 0x80FFFFFF, 0x80FFFFFF, 0xFFFFFFFF}},
        {"BilinearSameSize",
         KSBitmapTools::ScaleBiLin,
         2,
         2,
         {kRed, kBlue, kGreen, kWhite},
         {0x40FF0000, 0x807F007F, 0x807F7F00, 0xFF7F7F7F}},
        {"BilinearClearIsTheWordZero", KSBitmapTools::ScaleBiLin, 1, 2, {0x00FFFFFF}, {0, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        std::vector<Word> got(row.want.size(), 0x12345678);
        row.scale(row.size, row.size, row.to_size, row.to_size, row.source.data(), got.data(), row.size,
                  row.to_size);
        EXPECT_EQ(got, row.want) << row.name;
    }
}

TEST(Scaling, SizesOfZeroOrLessWriteNothing) {
    Word pixel = 7;
    for (const auto scale : {KSBitmapTools::ScalePlain, KSBitmapTools::ScaleBiLin})
        for (const int size : {0, -1, INT_MIN}) {
            scale(size, 1, 1, 1, nullptr, &pixel, 1, 1);
            scale(1, size, 1, 1, nullptr, &pixel, 1, 1);
            scale(1, 1, size, 1, &pixel, nullptr, 1, 1);
            scale(1, 1, 1, size, &pixel, nullptr, 1, 1);
        }
    EXPECT_EQ(pixel, 7u);
}

}  // namespace
