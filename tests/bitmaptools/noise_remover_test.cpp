// SPDX-License-Identifier: MIT
// Noise removal equals its definition, whatever the radius and the image.
#include "tests/bitmaptools/pixel_arrays.h"

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
                FAIL() << int{got[i]} << ", not " << int{want[i]} << ", at byte " << i << " of "
                       << picture.width << " x " << picture.height << ", radius " << radius << ", threshold "
                       << threshold << ", seed " << seed << ", " << NameOf(level);
        }
}

// Areas of a few values, with specks of these. So few specks that each square is searched, or many of few or
// of many values.
TEST(NoiseRemover, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 800 && !HasFailure(); seed += kSweepStep) {
        Noise noise(seed);
        const bool quiet = seed % 5 == 0;
        Picture picture = {quiet            ? noise.In(40, 170)
                           : noise.OneIn(3) ? noise.In(2, 5)
                                            : Size(noise) + 1,
                           quiet ? noise.In(20, 90) : Size(noise)};
        const long values = quiet ? 3 : noise.OneIn(3) ? 255 : noise.In(1, 39);
        const long areas = quiet || noise.OneIn(4) ? noise.In(0, 6) : 0;
        const long specks = quiet ? noise.In(1, 9) : picture.width * picture.height * noise.In(1, 12) / 6;
        for (long k = 0; k < areas + specks; ++k) {
            const long left = noise.In(0, picture.width - 1), top = noise.In(0, picture.height - 1);
            const long right = std::min(left + (k < areas ? noise.In(2, 60) : 1), picture.width);
            const long bottom = std::min(top + (k < areas ? noise.In(2, 30) : 1), picture.height);
            const auto value = static_cast<Byte>(noise.In(quiet, values));
            for (long y = top; y < bottom; ++y)
                std::fill_n(picture.bytes.begin() + y * picture.width + left, right - left, value);
        }
        ExpectCleaned(seed, picture, noise.OneIn(8) ? noise.In(0, 255) : noise.In(0, quiet ? 70 : 12),
                      noise.OneIn(quiet ? 2 : 8) ? noise.In(0, 255) : noise.In(1, quiet ? 9 : 6));
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
        for (long i = 0; i < width * height; ++i)
            picture.bytes[i] = static_cast<Byte>(i % width == width / 3 ? 7 : noise.Word());
        ExpectCleaned(0, picture, radius, threshold);
    }
}

}  // namespace
