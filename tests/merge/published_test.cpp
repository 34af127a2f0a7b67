// SPDX-License-Identifier: MIT
// The pixels promised on every processor.
#include "merge/KSMerge.h"
#include "tests/published.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using Word = std::uint32_t;
using Row = std::vector<Word>;

// A promise to keep: what these operations yield is the same on every processor and in every release. A hash
// is that of 4096 pixels for each mode but Dissolve, composed in runs of 61 with colours and opacities in
// turn, or as arrays.
TEST(PublishedHashes, HoldAtEveryLevel) {
    Sequence sequence;
    Row dst(4096), src(4096);
    for (std::size_t i = 0; i < dst.size(); i++) {
        dst[i] = sequence.NextPixel();
        src[i] = sequence.NextPixel();
    }
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        std::uint64_t of_runs = HashOf<Word>({}), of_arrays = of_runs;
        for (int mode = 0; mode < kMergeCount; mode++) {
            if (mode == kMergeDissolve)
                continue;
            Row runs = dst, arrays = dst;
            for (std::size_t i = 0; i < dst.size(); i += 61) {
                const Word opacity = i % 2 ? 255 : src[i] & 255;
                const auto count = static_cast<std::int32_t>(std::min<std::size_t>(61, dst.size() - i));
                KSMerge::hash_color_func[mode](&runs[i], src[i], opacity, count);
                KSMerge::hash_array_func[mode](&arrays[i], &src[i], opacity, count);
            }
            of_runs = HashOf<Word>(runs, of_runs);
            of_arrays = HashOf<Word>(arrays, of_arrays);
        }
        EXPECT_EQ(of_runs, 0xCC368B46BC563B38) << NameOf(level) << std::hex << ", " << of_runs;
        EXPECT_EQ(of_arrays, 0x1AB9C16BAF2BD47C) << NameOf(level) << std::hex << ", " << of_arrays;
    }
}

}  // namespace
