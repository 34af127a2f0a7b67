// SPDX-License-Identifier: MIT
// The first use of the library by several threads at once, in a program that has used nothing of it before.
#include "bitmaptools/KSBitmapTools.h"
#include "merge/KSMerge.h"
#include "raster/KSRaster.h"
#include "tests/support/levels.h"
#include "tests/raster/pixels.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <latch>
#include <thread>
#include <vector>

namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr int kSize = 40;

void Compose(Pixels& pixels) {
    for (std::size_t i = 0; i < pixels.size(); i += kSize)
        KSMerge::hash_color_func[kMergeScreen](&pixels[i], 0x80402010, 200, kSize);
}

void Scale(Pixels& pixels) {
    Pixels scaled(pixels.size());
    KSBitmapTools::ScaleBiLin(kSize / 2, kSize / 2, kSize, kSize, pixels.data(), scaled.data(), kSize, kSize);
    pixels = scaled;
}

void Draw(Pixels& pixels) {
    KSRaster raster(KSRect<long>(0, 0, kSize - 1, kSize - 1));
    raster.SetHighColor(200, 100, 50, 150);
    raster.SetDrawingMode(kMergeNormal);
    raster.FillEllipse(1, 2, kSize - 3, kSize - 2);
    raster.StrokeLine(0, 0, kSize - 1, kSize / 2);
    ForEachPixel(raster.Frame(), [&](long x, long y) {
        pixels[static_cast<std::size_t>(y * kSize + x)] ^= PixelAt(raster, x, y);
    });
}

// Each of these is some thread's first call.
constexpr void (*kUses[])(Pixels&) = {Compose, Scale, Draw};

// Returns the pixels that each use makes, beginning with use number `first`.
std::vector<Pixels> AllUses(std::size_t first) {
    std::vector<Pixels> made(std::size(kUses));
    for (std::size_t i = 0; i < made.size(); i++) {
        const std::size_t use = (first + i) % made.size();
        for (std::uint32_t k = 0; k < kSize * kSize; k++)
            made[use].push_back(k * 0x9E3779B1);
        kUses[use](made[use]);
    }
    return made;
}

// A program of its own, so that nothing has been chosen or set up before.
TEST(FirstUse, OfSeveralThreadsAtOnce) {
    constexpr std::size_t kThreads = 4;
    ASSERT_EQ(level_in_use.load(), kLevelUnknown) << "something was used before";
    std::vector<Pixels> made[kThreads];
    std::latch start(kThreads);
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < kThreads; i++)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            made[i] = AllUses(i);
        });
    threads.clear();

    const ScopedLevel held(Level::kBaseline);
    const std::vector<Pixels> want = AllUses(0);
    for (const auto& pixels : made)
        EXPECT_EQ(pixels, want);
}

}  // namespace
