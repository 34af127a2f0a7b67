// SPDX-License-Identifier: MIT
// Scaling equals its definition on every instruction set, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <climits>

namespace {

constexpr std::uint32_t kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF;

void ExpectScaled(Random& random, TestImage& source, long width, long height) {
    TestImage destination(random, width, height);
    const auto scale = [&](auto function, const std::uint32_t* from, std::uint32_t* to) {
        function(static_cast<int>(source.width), static_cast<int>(source.height), static_cast<int>(width),
                 static_cast<int>(height), from, to, static_cast<int>(source.row_length),
                 static_cast<int>(destination.row_length));
    };
    ExpectLikeReference(random, source, destination, [&](auto tools, const auto* from, auto* to) {
        scale(decltype(tools)::type::ScalePlain, from, to);
    });
    ExpectLikeReference(random, source, destination, [&](auto tools, const auto* from, auto* to) {
        scale(decltype(tools)::type::ScaleBiLin, from, to);
    });
}

TEST(Scaling, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 400 && !HasFailure(); ++seed) {
        Random random(seed);
        TestImage source(random, random.Size(), random.Size());
        random.Paint(source.array.items());
        ExpectScaled(random, source, random.Size(), random.Size());
        ExpectScaled(random, source, source.width, source.height);
    }
}

// Steps of whole pixels, of less than 1/4096 of a pixel (none), and of more than a block at once.
TEST(Scaling, EqualsItsDefinitionAtExtremeRatios) {
    const long shapes[][4] = {{1, 1, 300, 3},   {2, 2, 9000, 2},  {3, 1, 5000, 1},  {9000, 2, 2, 2},
                              {5000, 1, 1, 1},  {640, 4, 320, 2}, {900, 3, 300, 1}, {16, 3, 4096, 12},
                              {4096, 2, 16, 2}, {130, 1, 131, 1}, {131, 1, 130, 1}, {1, 70, 70, 1}};
    for (std::uint32_t seed = 0; seed < 3; ++seed)
        for (const auto& [width, height, to_width, to_height] : shapes) {
            Random random(seed);
            TestImage source(random, width, height);
            random.Paint(source.array.items());
            ExpectScaled(random, source, to_width, to_height);
            if (HasFailure())
                return;
        }
}

TEST(Scaling, WorkedValues) {
    const struct {
        const char* name;
        bool bilinear;
        int size;
        std::vector<std::uint32_t> source;
        int to_size;
        std::vector<std::uint32_t> want;
    } rows[] = {
        {"PlainTwoToThree",
         false,
         2,
         {kRed, kBlue, kGreen, kWhite},
         3,
         {kRed, kRed, kBlue, kRed, kRed, kBlue, kGreen, kGreen, kWhite}},
        {"BilinearOneToTwo", true, 1, {kWhite}, 2, {0x40FFFFFF, 0x80FFFFFF, 0x80FFFFFF, 0xFFFFFFFF}},
        {"BilinearSameSize",
         true,
         2,
         {kRed, kBlue, kGreen, kWhite},
         2,
         {0x40FF0000, 0x807F007F, 0x807F7F00, 0xFF7F7F7F}},
        {"BilinearClearIsTheWordZero", true, 1, {0x00FFFFFF}, 2, {0, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        std::vector<std::uint32_t> got(row.want.size(), 0x12345678);
        const auto scale = row.bilinear ? KSBitmapTools::ScaleBiLin : KSBitmapTools::ScalePlain;
        scale(row.size, row.size, row.to_size, row.to_size, row.source.data(), got.data(), row.size,
              row.to_size);
        EXPECT_EQ(got, row.want) << row.name;
    }
}

TEST(Scaling, SizesOfZeroOrLessWriteNothing) {
    std::uint32_t pixel = 7;
    for (const auto scale : {KSBitmapTools::ScalePlain, KSBitmapTools::ScaleBiLin})
        for (const int size : {0, -1, INT_MIN}) {
            scale(size, 1, 1, 1, nullptr, &pixel, 1, 1);
            scale(1, size, 1, 1, nullptr, &pixel, 1, 1);
            scale(1, 1, size, 1, &pixel, nullptr, 1, 1);
            scale(1, 1, 1, size, &pixel, nullptr, 1, 1);
        }
    EXPECT_EQ(pixel, 7u);
}

// Beyond 2^19 pixels a position no longer fits 32 bits; rows of length 0 make such a source cheap.
TEST(Scaling, HugeSources) {
    for (const int size : {(1 << 19) + 3, (1 << 20) + 1}) {
        Random random(static_cast<std::uint32_t>(size));
        TestImage wide(random, size, 2), high(1, size, 0, Against::kBack);
        random.Paint(wide.array.items());
        high.array.items()[0] = 0x80123456;
        ExpectScaled(random, wide, 70, 3);
        ExpectScaled(random, high, 2, 70);
        ExpectScaled(random, wide, size, 1);
    }
    TestImage endless(1, INT_MAX, 0, Against::kBack);
    endless.array.items()[0] = kRed;
    Random random(1);
    ExpectScaled(random, endless, 1, 3);
}

}  // namespace
