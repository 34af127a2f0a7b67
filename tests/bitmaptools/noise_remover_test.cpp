// SPDX-License-Identifier: MIT
// Noise removal equals its definition, whatever the radius and the image.
#include "tests/bitmaptools/pixel_arrays.h"

#include <new>

namespace {

using Bytes = std::vector<std::uint8_t>;

void ExpectCleaned(Random& random, const Bytes& image, long width, long height, int radius, int threshold) {
    Bytes want = image;
    reference::BitmapTools::NoiseRemover(
        want.data(), static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
        static_cast<std::uint8_t>(radius), static_cast<std::uint8_t>(threshold));
    for (const InstructionSet set : RunnableInstructionSets()) {
        const ScopedInstructionSet forced(set);
        GuardedArray<std::uint8_t> got(image.size(), random.OneIn(2) ? Against::kFront : Against::kBack);
        std::copy(image.begin(), image.end(), got.data());
        KSBitmapTools::NoiseRemover(got.data(), static_cast<std::uint32_t>(width),
                                    static_cast<std::uint32_t>(height), static_cast<std::uint8_t>(radius),
                                    static_cast<std::uint8_t>(threshold));
        for (std::size_t i = 0; i < image.size(); ++i)
            ASSERT_EQ(got.data()[i], want[i])
                << "was " << int{image[i]} << " at (" << i % width << ", " << i / width << ") of " << width
                << " x " << height << ", radius " << radius << ", threshold " << threshold << ", seed "
                << random.seed() << ", " << NameOf(set);
    }
}

// Images of few and of many values, of quiet areas with specks, and of noise.
Bytes RandomBytes(Random& random, long count) {
    Bytes image(static_cast<std::size_t>(count));
    const long values = random.OneIn(3) ? 256 : random.In(2, 40), specks = random.In(1, 12);
    for (auto& byte : image)
        byte = static_cast<std::uint8_t>(random.In(1, 12) <= specks ? random.In(0, values - 1) : 0);
    return image;
}

TEST(NoiseRemover, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 700 && !testing::Test::HasFailure(); ++seed) {
        Random random(seed);
        const long width = random.OneIn(3) ? random.In(2, 5) : random.Size() + 1, height = random.Size();
        const int radius = static_cast<int>(random.OneIn(8) ? random.In(0, 255) : random.In(0, 12));
        const int threshold = static_cast<int>(random.OneIn(8) ? random.In(0, 255) : random.In(1, 6));
        ExpectCleaned(random, RandomBytes(random, width * height), width, height, radius, threshold);
    }
}

// Noise around a column of one value, at radii whose counts fit a byte and those whose do not, and in images
// of several strips of columns.
TEST(NoiseRemover, EqualsItsDefinitionOnNoise) {
    const struct {
        long width, height;
        int radius, threshold;
    } rows[] = {{130, 90, 16, 40},   {130, 90, 40, 9},    {130, 90, 64, 62},
                {24, 280, 127, 250}, {24, 280, 128, 250}, {130, 90, 255, 200},
                {1025, 9, 3, 1},     {1034, 150, 9, 2},   {2100, 20, 60, 12}};
    for (const auto& row : rows) {
        Random random(static_cast<std::uint32_t>(row.radius));
        Bytes noise(static_cast<std::size_t>(row.width * row.height));
        for (auto& byte : noise)
            byte = static_cast<std::uint8_t>(random.In(0, 255));
        for (long y = 0; y < row.height; ++y)
            noise[static_cast<std::size_t>(y * row.width + row.width / 3)] = 7;
        ExpectCleaned(random, noise, row.width, row.height, row.radius, row.threshold);
    }
}

// Areas of a few values with so few specks of these that each square is searched.
TEST(NoiseRemover, EqualsItsDefinitionOnQuietImages) {
    for (std::uint32_t seed = 0; seed < 120 && !testing::Test::HasFailure(); ++seed) {
        Random random(seed);
        const long width = random.In(40, 170), height = random.In(20, 90);
        Bytes image(static_cast<std::size_t>(width * height));
        const auto fill = [&](long left, long top, long columns, long rows) {
            const auto value = static_cast<std::uint8_t>(random.In(1, 3));
            for (long y = top; y < std::min(top + rows, height); ++y)
                for (long x = left; x < std::min(left + columns, width); ++x)
                    image[static_cast<std::size_t>(y * width + x)] = value;
        };
        for (long k = random.In(0, 6); k > 0; --k)
            fill(random.In(0, width), random.In(0, height), random.In(2, 60), random.In(2, 30));
        for (long k = random.In(1, 9); k > 0; --k)
            fill(random.In(0, width), random.In(0, height), 1, 1);
        const auto radius = static_cast<int>(random.OneIn(6) ? 255 : random.In(0, 70));
        const auto threshold = static_cast<int>(random.OneIn(2) ? random.In(1, 255) : random.In(1, 9));
        ExpectCleaned(random, image, width, height, radius, threshold);
    }
}

TEST(NoiseRemover, WorkedValues) {
    const struct {
        const char* name;
        std::uint32_t width;
        std::uint8_t radius, threshold;
        Bytes image, want;
    } rows[] = {
        {"SingleSpeck", 3, 1, 1, {0, 0, 0, 0, 9, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"ThresholdZero", 3, 1, 0, {0, 0, 0, 0, 9, 0, 0, 0, 0}, {0, 0, 0, 0, 9, 0, 0, 0, 0}},
        {"TieGoesRight", 5, 2, 1, {1, 1, 5, 2, 2}, {1, 1, 2, 2, 2}},
        {"LeftIsMoreFrequent", 5, 2, 1, {1, 1, 5, 2, 7}, {1, 1, 1, 7, 2}},
        {"AdjacentSpecksStay", 4, 1, 1, {0, 0, 0, 0, 0, 9, 9, 0}, {0, 0, 0, 0, 0, 9, 9, 0}},
        {"TestsSeeTheImageAsItWas",
         4,
         1,
         1,
         {0, 0, 0, 0, 0, 9, 8, 0, 0, 0, 0, 0},
         {0, 0, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0}},
        {"OnePixelWide", 1, 1, 1, {1, 2, 3}, {1, 2, 3}},
    };
    for (const auto& row : rows) {
        Bytes got = row.image;
        KSBitmapTools::NoiseRemover(got.data(), row.width, static_cast<std::uint32_t>(got.size() / row.width),
                                    row.radius, row.threshold);
        EXPECT_EQ(got, row.want) << row.name;
    }
    KSBitmapTools::NoiseRemover(nullptr, 0, 4000000000u, 3, 3);
    KSBitmapTools::NoiseRemover(nullptr, 4000000000u, 0, 3, 3);
}

}  // namespace
