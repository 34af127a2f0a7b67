// SPDX-License-Identifier: MIT
// Scaling equals its definition at every level, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <climits>

namespace {

void ExpectScaled(Noise& noise, TestImage& source, long width, long height) {
    TestImage destination(noise, width, height);
    ExpectLikeReference(
        noise, source, destination, [&]<class Tools>(bool bilinear, const Word* from, Word* to) {
            (bilinear ? Tools::ScaleBiLin : Tools::ScalePlain)(
                static_cast<int>(source.width), static_cast<int>(source.height), static_cast<int>(width),
                static_cast<int>(height), from, to, static_cast<int>(source.row_length),
                static_cast<int>(destination.row_length));
        });
}

TEST(Scaling, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 400 && !HasFailure(); seed += kSweepStep) {
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

}  // namespace
