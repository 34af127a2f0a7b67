// SPDX-License-Identifier: MIT
// The first use of the library by several threads at once, in a program that has used nothing of it before.
#include "bitmaptools/KSBitmapTools.h"
#include "merge/KSMerge.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"
#include "tests/support/levels.h"

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
        KSRaster raster({0, 0, kSize - 1, kSize - 1});
        raster.SetDrawingMode(kMergeAdd);
        raster.FillEllipse(1, 2, kSize - 3, kSize - 2);
        pixels = PixelsOf(raster);
    },
};

// A program of its own, so that nothing has been chosen or set up before.
TEST(FirstUse, OfSeveralThreadsAtOnce) {
    constexpr std::size_t kThreads = 6;
    ASSERT_EQ(level_in_use.load(), kLevelUnknown) << "something was used before";
    std::vector<Pixels> made(kThreads, Pixels(kSize * kSize, 0x80402010));
    std::latch start(kThreads);
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < kThreads; i++)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            kUses[i % std::size(kUses)](made[i]);
        });
    threads.clear();

    for (std::size_t i = 0; i < kThreads; i++) {
        Pixels want(kSize * kSize, 0x80402010);
        kUses[i % std::size(kUses)](want);
        EXPECT_EQ(made[i], want);
    }
}

}  // namespace
