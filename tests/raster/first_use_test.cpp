// SPDX-License-Identifier: MIT
// The first use of the library by several threads at once, in a program that has used nothing of it before.
#include "bitmaptools/KSBitmapTools.h"
#include "merge/KSMerge.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <latch>
#include <thread>
#include <vector>

namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr int kSize = 40;

// Composes, scales and draws.
Pixels Use() {
    Pixels source(kSize * kSize, 0x80402010), pixels = source;
    KSMerge::hash_color_func[kMergeScreen](source.data(), 0x80402010, 200, kSize * kSize);
    KSBitmapTools::ScaleBiLin(kSize / 2, kSize / 2, kSize, kSize, source.data(), pixels.data(), kSize, kSize);
    KSRaster raster({0, 0, kSize - 1, kSize - 1});
    raster.SetDrawingMode(kMergeAdd);
    raster.FillEllipse(1, 2, kSize - 3, kSize - 2);
    std::ranges::copy(PixelsOf(raster), std::back_inserter(pixels));
    return pixels;
}

// A program of its own, so that nothing has been chosen or set up before.
TEST(FirstUse, OfSeveralThreadsAtOnce) {
    constexpr std::size_t kThreads = 6;
    ASSERT_EQ(level_in_use.load(), kLevelUnknown) << "something was used before";
    std::vector<Pixels> made(kThreads);
    std::latch start(kThreads);
    std::vector<std::jthread> threads;
    for (Pixels& pixels : made)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            pixels = Use();
        });
    threads.clear();
    EXPECT_EQ(made, std::vector(kThreads, Use()));
}

}  // namespace
