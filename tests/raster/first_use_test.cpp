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

// Each of these is some thread's first call.
constexpr void (*kUses[])(Pixels&) = {
    [](Pixels& pixels) {
        KSMerge::hash_color_func[kMergeScreen](pixels.data(), 0x80402010, 200, kSize * kSize);
    },
    [](Pixels& pixels) {
        const Pixels source = pixels;
        KSBitmapTools::ScaleBiLin(kSize / 2, kSize / 2, kSize, kSize, source.data(), pixels.data(), kSize,
                                  kSize);
    },
    [](Pixels& pixels) {
        KSRaster raster(KSRect<long>(0, 0, kSize - 1, kSize - 1));
        raster.SetHighColor(200, 100, 50, 150);
        raster.SetDrawingMode(kMergeNormal);
        raster.FillEllipse(1, 2, kSize - 3, kSize - 2);
        raster.StrokeLine(0, 0, kSize - 1, kSize / 2);
        std::memcpy(pixels.data(), raster.Bits(), BytesOf(raster).size());
    },
};

// Returns the pixels that each use makes of the same ones, beginning with use number `first`.
std::vector<Pixels> AllUses(std::size_t first) {
    std::vector<Pixels> made(std::size(kUses), Pixels(kSize * kSize));
    for (std::size_t i = 0; i < made.size(); i++) {
        const std::size_t use = (first + i) % made.size();
        Noise(1).Paint(made[use]);
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
