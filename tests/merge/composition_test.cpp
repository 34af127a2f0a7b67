// SPDX-License-Identifier: MIT
// Sweeps of the arithmetic: every instruction set and family against the modes computed one channel at a
// time.
#include "tests/instruction_sets.h"
#include "tests/merge/modes.h"
#include "tests/reference/composition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

namespace {

using Word = std::uint32_t;
using Row = std::vector<Word>;

constexpr Word kAlphas[] = {0, 1, 2, 64, 127, 128, 200, 254, 255};

Word Pixel(Word alpha, Word red, Word green, Word blue) {
    return alpha << 24 | red << 16 | green << 8 | blue;
}

std::int32_t CountOf(const Row& row) {
    return static_cast<std::int32_t>(row.size());
}

// Fails naming the first pixel in which two rows differ.
testing::AssertionResult SameRow(const char* family, ks_composition_mode mode, const Row& dst, const Row& src,
                                 Word opacity, const Row& got, const Row& want) {
    const auto [g, w] = std::mismatch(got.begin(), got.end(), want.begin());
    if (g == got.end())
        return testing::AssertionSuccess();
    const std::size_t i = static_cast<std::size_t>(g - got.begin());
    char text[160];
    std::snprintf(text, sizeof text, "%s %s, pixel %zu: dst %08X src %08X opacity %u: got %08X, want %08X",
                  family, ModeName(mode).c_str(), i, dst[i], src[i], opacity, *g, *w);
    return testing::AssertionFailure() << text;
}

// Composes `src` onto `dst` with the array kernel with every instruction set, and pixel by pixel.
void CheckArrays(ks_composition_mode mode, const Row& dst, const Row& src, Word opacity) {
    Row want(dst.size()), got(dst.size());
    for (std::size_t i = 0; i < dst.size(); i++) {
        want[i] = reference::ComposePixel(mode, dst[i], src[i], opacity);
        got[i] = KSMerge::hash_pixel_func[mode](dst[i], src[i], opacity);
    }
    ASSERT_TRUE(SameRow("pixel", mode, dst, src, opacity, got, want));
    if (mode == kMergeErase || mode == kMergeAlphaMask)
        for (std::size_t i = 0; i < dst.size(); i++)
            want[i] = reference::ComposeInArray(mode, dst[i], src[i], opacity);
    for (const InstructionSet set : RunnableInstructionSets()) {
        const ScopedInstructionSet forced(set);
        got = dst;
        KSMerge::hash_array_func[mode](got.data(), src.data(), opacity, CountOf(got));
        ASSERT_TRUE(SameRow("array", mode, dst, src, opacity, got, want)) << NameOf(set);
    }
}

// Composes one colour onto `dst` with the run kernel of every instruction set.
void CheckRuns(ks_composition_mode mode, const Row& dst, Word color, Word opacity) {
    Row want(dst.size());
    for (std::size_t i = 0; i < dst.size(); i++)
        want[i] = reference::ComposeInRun(mode, dst[i], color, opacity);
    for (const InstructionSet set : RunnableInstructionSets()) {
        const ScopedInstructionSet forced(set);
        Row got = dst;
        KSMerge::hash_color_func[mode](got.data(), color, opacity, CountOf(got));
        ASSERT_TRUE(SameRow("run", mode, dst, Row(dst.size(), color), opacity, got, want)) << NameOf(set);
    }
}

class EveryMode : public testing::TestWithParam<ks_composition_mode> {};

// Dissolve is tested by itself.
INSTANTIATE_TEST_SUITE_P(Modes, EveryMode, testing::ValuesIn(AllModesBut({kMergeDissolve})),
                         [](const auto& test) { return ModeName(test.param); });

// All 256 x 256 pairs of a destination's and a source's channel, three to a pixel.
void ChannelPairs(Word dst_alpha, Word src_alpha, Row& dst, Row& src) {
    dst.clear();
    src.clear();
    for (Word s = 0; s < 256; s++)
        for (Word d = 0; d < 256; d += 3) {
            dst.push_back(Pixel(dst_alpha, d, std::min(d + 1, 255u), std::min(d + 2, 255u)));
            src.push_back(Pixel(src_alpha, s, s, s));
        }
}

TEST_P(EveryMode, ComposesAllChannelPairsForAGridOfAlphas) {
    Row dst, src;
    for (const Word dst_alpha : kAlphas)
        for (const Word src_alpha : kAlphas) {
            ChannelPairs(dst_alpha, src_alpha, dst, src);
            for (const Word opacity : {255u, 128u})
                ASSERT_NO_FATAL_FAILURE(CheckArrays(GetParam(), dst, src, opacity));
        }
}

TEST_P(EveryMode, ComposesAllAlphaPairs) {
    for (const Word opacity : {255u, 254u, 100u, 1u}) {
        Row dst, src;
        for (Word alphas = 0; alphas < 65536; alphas++) {
            dst.push_back(Pixel(alphas >> 8, 250, 9, 131));
            src.push_back(Pixel(alphas & 255, 3, 255, 77));
        }
        ASSERT_NO_FATAL_FAILURE(CheckArrays(GetParam(), dst, src, opacity));
        std::fill(src.begin(), src.end(), Pixel(150, 40, 160, 220));
        ASSERT_NO_FATAL_FAILURE(CheckArrays(GetParam(), dst, src, opacity));
    }
}

TEST_P(EveryMode, ComposesForAllOpacities) {
    for (Word opacity = 0; opacity < 256; opacity++) {
        Row dst, src;
        for (const Word dst_alpha : kAlphas)
            for (Word src_alpha = 0; src_alpha < 256; src_alpha += 5) {
                dst.push_back(Pixel(dst_alpha, 255, 100, 7));
                src.push_back(Pixel(src_alpha, opacity, 101, 201));
            }
        ASSERT_NO_FATAL_FAILURE(CheckArrays(GetParam(), dst, src, opacity));
        for (const Word color : {src[3], src.back() | 0xFF000000, Word{0x01FF8000}})
            ASSERT_NO_FATAL_FAILURE(CheckRuns(GetParam(), dst, color, opacity));
    }
}

TEST_P(EveryMode, ComposesRunsOfOneColor) {
    for (const Word dst_alpha : kAlphas)
        for (const Word color_alpha : kAlphas)
            for (Word s = 0; s < 256; s += 15) {
                Row dst;
                for (Word d = 0; d < 256; d++)
                    dst.push_back(Pixel(dst_alpha, d, 255 - d, d ^ 85));
                ASSERT_NO_FATAL_FAILURE(
                    CheckRuns(GetParam(), dst, Pixel(color_alpha, s, s ^ 99, 255 - s), 255));
                ASSERT_NO_FATAL_FAILURE(
                    CheckRuns(GetParam(), dst, Pixel(color_alpha, s, s ^ 99, 255 - s), 77));
            }
}

TEST_P(EveryMode, TakesOpacitiesAbove255As255) {
    const Row dst = {0, 0x80402010, 0xFF102030, 0x01FFFFFF},
              src = {0xFFFFFFFF, 0x80808080, 0xFE010203, 0x02030405};
    for (const Word opacity : {256u, 65535u, 0x01000001u, 0xFFFFFFFFu}) {
        Row plain = dst, beyond = dst;
        KSMerge::hash_array_func[GetParam()](plain.data(), src.data(), 255, 4);
        KSMerge::hash_array_func[GetParam()](beyond.data(), src.data(), opacity, 4);
        EXPECT_EQ(beyond, plain);
        KSMerge::hash_color_func[GetParam()](plain.data(), src[1], 255, 4);
        KSMerge::hash_color_func[GetParam()](beyond.data(), src[1], opacity, 4);
        EXPECT_EQ(beyond, plain);
        for (const Word d : dst)
            EXPECT_EQ(KSMerge::hash_pixel_func[GetParam()](d, src[1], opacity),
                      KSMerge::hash_pixel_func[GetParam()](d, src[1], 255));
    }
}

// Vectors in which pixels of every kind stand side by side.
TEST_P(EveryMode, ComposesMixedPixels) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const auto pixel = [&](Word kind) {
        const Word word = static_cast<Word>(random()),
                   choice = kind < 3 ? kind : static_cast<Word>(random() % 4);
        return choice == 0 ? word | 0xFF000000 : choice == 1 ? word & 0xFFFFFF : word;
    };
    for (int round = 0; round < 1500; round++) {
        const Word dst_kind = static_cast<Word>(random() % 5), src_kind = static_cast<Word>(random() % 5);
        Row dst(100), src(100);
        std::generate(dst.begin(), dst.end(), [&] { return pixel(dst_kind); });
        std::generate(src.begin(), src.end(), [&] { return pixel(src_kind); });
        const Word opacity = round % 2 ? 255 : static_cast<Word>(random() % 256);
        ASSERT_NO_FATAL_FAILURE(CheckArrays(GetParam(), dst, src, opacity));
        ASSERT_NO_FATAL_FAILURE(CheckRuns(GetParam(), dst, src[0], opacity));
    }
}

class ReplaceModes : public testing::TestWithParam<ks_composition_mode> {};

INSTANTIATE_TEST_SUITE_P(Modes, ReplaceModes,
                         testing::Values(kMergeReplaceHue, kMergeReplaceSaturation, kMergeReplaceLuminosity,
                                         kMergeReplaceColor),
                         [](const auto& test) { return ModeName(test.param); });

// Rows over all 2^24 colours, on one side and then on the other.
TEST_P(ReplaceModes, ConvertEveryColor) {
    Row colors(65536), others(65536);
    for (Word red = 0; red < 256; red++) {
        for (Word i = 0; i < 65536; i++) {
            colors[i] = 0xFF000000 | red << 16 | i;
            others[i] = Pixel(255, 255, 10 * (i % 23), 31 * (red % 9));
        }
        ASSERT_NO_FATAL_FAILURE(GetParam() == kMergeReplaceColor || GetParam() == kMergeReplaceHue
                                    ? CheckArrays(GetParam(), others, colors, 255)
                                    : CheckArrays(GetParam(), colors, others, 255));
    }
}

// Every hue with every saturation and value that a colour can have.
TEST(ReplaceHue, MeetsEverySaturationAndValue) {
    std::vector<Word> hues;
    for (Word f = 0; f < 255; f++)
        for (const Word color : {0xFF0000 | f << 8, (255 - f) << 16 | 0xFF00, 0xFF00 | f,
                                 (255 - f) << 8 | 0xFF, f << 16 | 0xFF, 0xFF0000 | (255 - f)})
            hues.push_back(0xFF000000 | color);
    for (Word value = 0; value < 256; value += 3) {
        Row dst, src;
        for (Word least = 0; least <= value; least++)
            for (const Word hue : hues) {
                dst.push_back(Pixel(255, value, least, least));
                src.push_back(hue);
            }
        ASSERT_NO_FATAL_FAILURE(CheckArrays(kMergeReplaceHue, dst, src, 255));
    }
}

// The weighted mean over translucent destinations for `src_alpha` and every destination alpha and channel
// pair.
void CheckWeightedMeans(Word src_alpha, Word dst_alpha) {
    Row dst, src;
    ChannelPairs(dst_alpha, src_alpha, dst, src);
    const Word under = (255 - src_alpha) * dst_alpha, upper = 255 * src_alpha, divisor = under + upper + 1;
    Row got = dst;
    KSMerge::hash_array_func[kMergeNormal](got.data(), src.data(), 255, CountOf(got));
    for (std::size_t i = 0; i < got.size(); i++) {
        const auto mean = [&](Word shift) {
            return ((dst[i] >> shift & 255) * under + (src[i] >> shift & 255) * upper) / divisor;
        };
        const Word want = Pixel((under + upper) / 255, mean(16), mean(8), mean(0));
        if (got[i] != want)
            FAIL() << std::hex << "dst " << dst[i] << " src " << src[i] << " got " << got[i] << " want "
                   << want;
    }
}

TEST(WeightedMean, IsExactForASampleOfAlphas) {
    for (Word src_alpha = 1; src_alpha < 255; src_alpha++)
        for (Word dst_alpha = 1 + src_alpha * 7 % 31; dst_alpha < 255; dst_alpha += 31)
            ASSERT_NO_FATAL_FAILURE(CheckWeightedMeans(src_alpha, dst_alpha));
}

// Every case there is; takes a minute of processor time: merge_test --gtest_also_run_disabled_tests
// --gtest_filter=WeightedMean.*
TEST(WeightedMean, DISABLED_IsExactForAllAlphas) {
    for (Word src_alpha = 1; src_alpha < 255; src_alpha++)
        for (Word dst_alpha = 1; dst_alpha < 255; dst_alpha++)
            ASSERT_NO_FATAL_FAILURE(CheckWeightedMeans(src_alpha, dst_alpha));
}

}  // namespace
