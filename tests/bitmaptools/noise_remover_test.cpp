// SPDX-License-Identifier: MIT
// Noise removal equals its definition, whatever the radius and the image.
#include "tests/bitmaptools/pixel_arrays.h"

#include <string>

namespace {

using Byte = std::uint8_t;
using Bytes = std::vector<Byte>;

struct Picture {
    long width, height;
    Bytes bytes = Bytes(static_cast<std::size_t>(width * height));
};

void ExpectCleaned(std::uint32_t seed, const Picture& picture, long radius, long threshold) {
    const auto clean = [&](auto function, Byte* bytes) {
        function(bytes, static_cast<std::uint32_t>(picture.width), static_cast<std::uint32_t>(picture.height),
                 static_cast<Byte>(radius), static_cast<Byte>(threshold));
    };
    Bytes want = picture.bytes;
    clean(reference::BitmapTools::NoiseRemover, want.data());
    for (const Level level : Levels())
        for (const Against end : {Against::kFront, Against::kBack}) {
            const ScopedLevel held(level);
            GuardedArray<Byte> array(want.size(), end);
            const auto got = array.Items();
            std::ranges::copy(picture.bytes, got.begin());
            clean(KSBitmapTools::NoiseRemover, got.data());
            const long i = std::ranges::mismatch(got, want).in1 - got.begin();
            if (i != std::ssize(want))
                FAIL() << int{got[i]} << ", not " << int{want[i]} << ", was " << int{picture.bytes[i]}
                       << " at (" << i % picture.width << ", " << i / picture.width << ") of "
                       << picture.width << " x " << picture.height << ", radius " << radius << ", threshold "
                       << threshold << ", seed " << seed << ", " << NameOf(level);
        }
}

// Images of few and of many values, of quiet areas with specks, and of noise.
TEST(NoiseRemover, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 700 && !HasFailure(); ++seed) {
        Noise noise(seed);
        Picture picture = {noise.OneIn(3) ? noise.In(2, 5) : Size(noise) + 1, Size(noise)};
        const long values = noise.OneIn(3) ? 256 : noise.In(2, 40), specks = noise.In(1, 12);
        for (Byte& byte : picture.bytes)
            byte = static_cast<Byte>(noise.In(1, 12) <= specks ? noise.In(0, values - 1) : 0);
        ExpectCleaned(seed, picture, noise.OneIn(8) ? noise.In(0, 255) : noise.In(0, 12),
                      noise.OneIn(8) ? noise.In(0, 255) : noise.In(1, 6));
    }
}

// Noise around a column of one value, at radii whose counts fit a byte and those whose do not, and in images
// of several strips of columns.
TEST(NoiseRemover, EqualsItsDefinitionOnNoise) {
    const long rows[][4] = {// width, height, radius, threshold
                            {130, 90, 16, 40},   {130, 90, 40, 9},    {130, 90, 64, 62},
                            {24, 280, 127, 250}, {24, 280, 128, 250}, {130, 90, 255, 200},
                            {1025, 9, 3, 1},     {1034, 150, 9, 2},   {2100, 20, 60, 12}};
    for (const auto& [width, height, radius, threshold] : rows) {
        Noise noise(0);
        Picture picture = {width, height};
        for (Byte& byte : picture.bytes)
            byte = static_cast<Byte>(noise.Word());
        for (long y = 0; y < height; ++y)
            picture.bytes[static_cast<std::size_t>(y * width + width / 3)] = 7;
        ExpectCleaned(0, picture, radius, threshold);
    }
}

// Areas of a few values with so few specks of these that each square is searched.
TEST(NoiseRemover, EqualsItsDefinitionOnQuietImages) {
    for (std::uint32_t seed = 0; seed < 120 && !HasFailure(); ++seed) {
        Noise noise(seed);
        Picture picture = {noise.In(40, 170), noise.In(20, 90)};
        const long areas = noise.In(0, 6), specks = noise.In(1, 9);
        for (long k = 0; k < areas + specks; ++k) {
            const long left = noise.In(0, picture.width), top = noise.In(0, picture.height);
            const long right = std::min(left + (k < areas ? noise.In(2, 60) : 1), picture.width);
            const long bottom = std::min(top + (k < areas ? noise.In(2, 30) : 1), picture.height);
            const auto value = static_cast<Byte>(noise.In(1, 3));
            for (long y = top; y < bottom; ++y)
                for (long x = left; x < right; ++x)
                    picture.bytes[static_cast<std::size_t>(y * picture.width + x)] = value;
        }
        ExpectCleaned(seed, picture, noise.OneIn(6) ? 255 : noise.In(0, 70),
                      noise.OneIn(2) ? noise.In(1, 255) : noise.In(1, 9));
    }
}

// A digit is a pixel.
TEST(NoiseRemover, WorkedValues) {
    const struct {
        const char* name;
        std::uint32_t width;
        Byte radius, threshold;
        std::string image, want;
    } rows[] = {
        {"SingleSpeck", 3, 1, 1, "000090000", "000000000"},
        {"ThresholdZero", 3, 1, 0, "000090000", "000090000"},
        {"TieGoesRight", 5, 2, 1, "11522", "11222"},
        {"LeftIsMoreFrequent", 5, 2, 1, "11527", "11172"},
        {"AdjacentSpecksStay", 4, 1, 1, "00000990", "00000990"},
        {"TestsSeeTheImageAsItWas", 4, 1, 1, "000009800000", "000008000000"},
        {"OnePixelWide", 1, 1, 1, "123", "123"},
    };
    for (const auto& row : rows) {
        Bytes got(row.image.begin(), row.image.end());
        KSBitmapTools::NoiseRemover(got.data(), row.width, static_cast<std::uint32_t>(got.size() / row.width),
                                    row.radius, row.threshold);
        EXPECT_EQ(std::string(got.begin(), got.end()), row.want) << row.name;
    }
    KSBitmapTools::NoiseRemover(nullptr, 0, 4000000000u, 3, 3);
    KSBitmapTools::NoiseRemover(nullptr, 4000000000u, 0, 3, 3);
}

}  // namespace
