// SPDX-License-Identifier: MIT
// The kernels of every mode at every level: what they make of pixels, against the modes computed
// one channel at a time, and which memory they touch.
#include "tests/reference/composition.h"
#include "tests/support/guarded_array.h"
#include "tests/support/levels.h"
#include "tests/support/noise.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using reference::Word;
using Row = std::vector<Word>;

// The initialiser calls a kernel before main.
const Word kComposedBeforeMain = [] {
    Word pixels[40] = {};
    KSMerge::hash_color_func[kMergeCopy](pixels, 0x12345678, 255, 40);
    KSMerge::hash_array_func[kMergeNormal](pixels, pixels + 20, 0, 20);
    return KSMerge::hash_pixel_func[kMergeCopy](0, pixels[39], 255);
}();

TEST(Tables, AreReadyBeforeMain) {
    EXPECT_EQ(kComposedBeforeMain, 0x12345678u);
}

TEST(Tables, NameTheModesInTheirOrder) {
    std::string labels, destructive;
    for (int mode = 0; mode < kMergeCount; mode++) {
        labels += KSMerge::composition_label[mode] + std::string(";");
        if (KSMerge::merge_destructive[mode])
            destructive += KSMerge::composition_label[mode] + std::string(";");
    }
    EXPECT_EQ(labels,
              "Normal;Multiply;Screen;Erase;Add;Subtract;Darkest;Lightest;Difference;Average;Invert;Dissolve;"
              "Replace Hue;Replace Saturation;Replace Luminosity;Replace Color;XOR Mask;Alpha Mask;Copy;Over;"
              "Filter;Overlay;");
    EXPECT_EQ(destructive, "Alpha Mask;Copy;");
}

constexpr Word kAlphas[] = {0, 1, 2, 64, 127, 128, 200, 254, 255};

Word Pixel(Word alpha, Word red, Word green, Word blue) {
    return alpha << 24 | red << 16 | green << 8 | blue;
}

// Returns the row word(0), word(1), ...
template <class Function> Row Made(Word count, Function word) {
    Row row(count);
    for (Word i = 0; i < count; i++)
        row[i] = word(i);
    return row;
}

// Starts the numbers that Dissolve draws anew.
void Restart(ks_composition_mode mode) {
    if (mode == kMergeDissolve)
        std::srand(42);
}

// Composes `src` onto `dst` with all kernels; with those of runs if `src` is of one color. Where they draw
// random numbers, the next number tells how many.
void Check(ks_composition_mode mode, const Row& dst, const Row& src, Word opacity) {
    const auto composed = [&](auto compose) {
        Restart(mode);
        Row row = dst;
        compose(row.data());
        row.push_back(mode == kMergeDissolve ? static_cast<Word>(std::rand()) : 0);
        return row;
    };
    const auto expect = [&](const char* family, const Row& want, auto kernel) {
        const Row got = composed(kernel);
        if (got == want)
            return;
        const auto i = static_cast<std::size_t>(std::ranges::mismatch(got, want).in1 - got.begin());
        FAIL() << KSMerge::composition_label[mode] << ' ' << family << " on " << NameOf(ActiveLevel())
               << ", pixel " << i << " of " << dst.size() << ", opacity " << opacity << std::hex << ": got "
               << got[i] << ", want " << want[i] << ", dst " << dst[i % dst.size()] << ", src "
               << src[i % src.size()];
    };
    const auto wanted = [&](auto oracle) {
        return composed([&](Word* row) {
            for (std::size_t i = 0; i < dst.size(); i++)
                row[i] = oracle(mode, row[i], src[i], std::min(opacity, 255u));
        });
    };
    const bool differ = mode == kMergeErase || mode == kMergeAlphaMask;
    const Row pixels = wanted(reference::ComposePixel);
    const Row array = differ ? wanted(reference::ComposeInArray) : pixels;
    const Row run = differ ? wanted(reference::ComposeInRun) : pixels;
    const auto count = static_cast<std::int32_t>(dst.size());
    expect("pixel", pixels, [&](Word* row) {
        for (std::size_t i = 0; i < dst.size(); i++)
            row[i] = KSMerge::hash_pixel_func[mode](row[i], src[i], opacity);
    });
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        expect("array", array,
               [&](Word* row) { KSMerge::hash_array_func[mode](row, src.data(), opacity, count); });
        if (std::ranges::count(src, src[0]) == std::ssize(src))
            expect("run", run,
                   [&](Word* row) { KSMerge::hash_color_func[mode](row, src[0], opacity, count); });
    }
}

// All 256 x 256 pairs of a destination's and a source's channel, three to a pixel.
void CheckChannelPairs(ks_composition_mode mode, Word dst_alpha, Word src_alpha, Word opacity) {
    const Row dst = Made(86, [&](Word i) {
        return Pixel(dst_alpha, 3 * i, std::min(3 * i + 1, 255u), std::min(3 * i + 2, 255u));
    });
    for (Word s = 0; s < 256; s += kSweepStep)
        ASSERT_NO_FATAL_FAILURE(
            Check(mode, dst, Row(dst.size(), Pixel(src_alpha, s, s ^ 99, 255 - s)), opacity));
}

class EveryMode : public testing::TestWithParam<int> {
protected:
    const ks_composition_mode mode = static_cast<ks_composition_mode>(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Modes, EveryMode, testing::Range(0, int{kMergeCount}));

TEST_P(EveryMode, ComposesAllChannelPairsForAGridOfAlphas) {
    for (const Word dst_alpha : kAlphas)
        for (const Word src_alpha : kAlphas)
            for (const Word opacity : {255u, 128u})
                ASSERT_NO_FATAL_FAILURE(CheckChannelPairs(mode, dst_alpha, src_alpha, opacity));
}

// One alpha of either side with all of the other's.
TEST_P(EveryMode, ComposesAllAlphaPairs) {
    const Row dst = Made(256, [](Word alpha) { return Pixel(alpha, 250, 9, 131); });
    const Row src = Made(256, [](Word alpha) { return Pixel(alpha, 3, 255, 77); });
    for (const Word opacity : {255u, 254u, 100u, 1u})
        for (Word i = 0; i < 256; i += kSweepStep) {
            ASSERT_NO_FATAL_FAILURE(Check(mode, Row(256, dst[i]), src, opacity));
            ASSERT_NO_FATAL_FAILURE(Check(mode, dst, Row(256, src[i]), opacity));
        }
}

// All opacities, those above 255 count as 255, and all alphas of sources among pixels of every kind. Most
// rows are composed at 255, where the kernels treat whole vectors alike.
TEST_P(EveryMode, ComposesMixedPixelsForAllOpacities) {
    constexpr Word kAbove255[] = {256, 65535, 0x01000001, 0xFFFFFFFF};
    for (Word i = 0; i < 1000; i += kSweepStep) {
        const Word opacity = i < 256 ? i : i < 260 ? kAbove255[i - 256] : 255;
        Noise noise(i);
        Row dst(400), src(400);
        noise.Paint(dst);
        noise.Paint(src);
        for (Word alpha = 0; i < 260 && alpha < 256; alpha++)
            src[alpha] = (src[alpha] & 0xFFFFFF) | alpha << 24;
        ASSERT_NO_FATAL_FAILURE(Check(mode, dst, src, opacity));
        for (const Word color : {src[3], src[51], src[399]})
            ASSERT_NO_FATAL_FAILURE(Check(mode, dst, Row(400, color), opacity));
    }
}

constexpr std::int32_t kLongest = 130;

// The words around a run keep their value, and the pages behind the array's ends are not touched.
TEST_P(EveryMode, ComposesAnyLengthAtAnyAlignment) {
    constexpr Word kColor = 0xC0408020, kOpacity = 200, kGuard = 0xA5C3F00F;
    Noise noise(7);
    Row dst(kLongest), src(kLongest);
    noise.Paint(dst);
    noise.Paint(src);
    Row counts = Made(kLongest + 1, [](Word count) { return count; });
    counts.insert(counts.end(), {0x80000000, 0xFFFFFFFB, 0xFFFFFFFF});  // negative ones
    for (const Level level : Levels())
        for (const bool at_front : {false, true})
            for (const bool as_run : {false, true}) {
                const ScopedLevel held(level);
                Restart(mode);
                const Row composed = Made(kLongest, [&](Word i) {
                    return as_run ? reference::ComposeInRun(mode, dst[i], kColor, kOpacity)
                                  : reference::ComposeInArray(mode, dst[i], src[i], kOpacity);
                });
                const Against end = at_front ? Against::kFront : Against::kBack;
                GuardedArray<Word> storage(kLongest + 16, end), sources(kLongest, end);
                const auto all = storage.Items();
                for (const Word count : counts)
                    for (Word offset = 0; offset < 16; offset++) {
                        const Word length = count <= kLongest ? count : 0;
                        const Word at = at_front ? offset : kLongest + 16 - offset - length;
                        const auto placed = [&](const Row& row) {
                            return Made(kLongest + 16, [&](Word i) {
                                return i >= at && i < at + length ? row[i - at] : kGuard;
                            });
                        };
                        Word* const from = &sources.Items()[0] + (at_front ? 0 : kLongest - length);
                        std::copy_n(src.begin(), length, from);
                        std::ranges::copy(placed(dst), all.begin());
                        Restart(mode);
                        const auto signed_count = static_cast<std::int32_t>(count);
                        if (as_run)
                            KSMerge::hash_color_func[mode](&all[0] + at, kColor, kOpacity, signed_count);
                        else
                            KSMerge::hash_array_func[mode](&all[0] + at, from, kOpacity, signed_count);
                        ASSERT_TRUE(std::ranges::equal(all, placed(composed)))
                            << (as_run ? "run" : "array") << " of " << length << " pixels, offset " << offset
                            << ", " << NameOf(level);
                    }
            }
}

// Runs of 4096 pixels and more are replaced past the caches, from the first aligned vector on.
TEST_P(EveryMode, ComposesLongRunsAtAnyAlignment) {
    constexpr Word kCount = 4096 + 70, kColor = 0xFF408020, kGuard = 0xA5C3F00F;
    if (mode == kMergeDissolve)
        return;
    Noise noise(11);
    Row dst(kCount), src(kCount);
    noise.Paint(dst);
    noise.Paint(src);
    std::fill_n(src.begin() + 70, 2000, kColor);
    for (const bool as_run : {false, true}) {
        const Row composed = Made(kCount, [&](Word i) {
            return as_run ? reference::ComposeInRun(mode, dst[i], kColor, 255)
                          : reference::ComposeInArray(mode, dst[i], src[i], 255);
        });
        for (const Level level : Levels())
            for (Word offset = 0; offset < 16; offset++) {
                const ScopedLevel held(level);
                Row row(kCount + 32, kGuard), want = row;
                Word* const begin = &row[offset];
                std::ranges::copy(composed, &want[offset]);
                std::ranges::copy(dst, begin);
                if (as_run)
                    KSMerge::hash_color_func[mode](begin, kColor, 255, kCount);
                else
                    KSMerge::hash_array_func[mode](begin, src.data(), 255, kCount);
                ASSERT_EQ(row, want) << as_run << ", offset " << offset << ", " << NameOf(level);
            }
    }
}

// Where a source leaves the destination as it is, the destination may lie in inaccessible memory.
TEST_P(EveryMode, TouchesNothingUnderClearSources) {
    constexpr Word kDrawn = 0xC0408020, kClear = 0x00FFFFFF, kOpaque = 0xFF408020;
    if (mode == kMergeDissolve)
        return;
    const bool nothing_at_0 = mode == kMergeNormal || mode == kMergeFilter || mode == kMergeOverlay;
    GuardedArray<Word> array(64, Against::kBack);
    Word* const begin = array.Items().data();
    Word* const nowhere = begin + 64;
    Row src(64, kDrawn);
    src.resize(64 + kLongest, kClear);
    const Row opaque(kLongest, kOpaque);
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        for (std::int32_t count = 0; count <= kLongest; count++) {
            if (mode != kMergeCopy)
                KSMerge::hash_color_func[mode](nowhere, kClear, 255, count);
            if (nothing_at_0) {
                KSMerge::hash_color_func[mode](nowhere, kOpaque, 0, count);
                KSMerge::hash_array_func[mode](nowhere, opaque.data(), 0, count);
            }
            if (KSMerge::merge_destructive[mode])
                continue;
            for (const Word opacity : {255u, 100u}) {
                std::fill(begin, nowhere, 0x80402010);
                KSMerge::hash_array_func[mode](begin, src.data(), opacity, 64 + count);
                ASSERT_EQ(nowhere[-1], reference::ComposeInArray(mode, 0x80402010, kDrawn, opacity));
            }
        }
    }
}

// All 2^24 colours, on the side of which a mode that converts them takes more.
TEST_P(EveryMode, ConvertsEveryColor) {
    const bool by_source = mode == kMergeReplaceHue || mode == kMergeReplaceColor;
    if (!by_source && mode != kMergeReplaceSaturation && mode != kMergeReplaceLuminosity)
        return;
    for (Word red = 0; red < 256; red += kSweepStep) {
        const Row colors = Made(65536, [&](Word i) { return 0xFF000000 | red << 16 | i; });
        const Row others =
            Made(65536, [&](Word i) { return Pixel(255, 255, 10 * (i % 23), 31 * (red % 9)); });
        ASSERT_NO_FATAL_FAILURE(Check(mode, by_source ? others : colors, by_source ? colors : others, 255));
    }
}

// Every hue with every saturation and value that a colour can have.
TEST(ReplaceHue, MeetsEverySaturationAndValue) {
    const Row hues = Made(1530, [](Word hue) {
        return 0xFF000000 | reference::Packed(reference::FromHue({hue, 255, 255}));
    });
    for (Word value = 0; value < 256; value += 3 * kSweepStep)
        for (Word least = 0; least <= value; least++)
            ASSERT_NO_FATAL_FAILURE(
                Check(kMergeReplaceHue, Row(hues.size(), Pixel(255, value, least, least)), hues, 255));
}

// The weighted mean over translucent destinations divides by many divisors.
TEST(WeightedMean, IsExactForASampleOfAlphas) {
    for (Word src_alpha = 1; src_alpha < 255; src_alpha += kSweepStep)
        for (Word dst_alpha = 1 + src_alpha * 7 % 31; dst_alpha < 255; dst_alpha += 31)
            ASSERT_NO_FATAL_FAILURE(CheckChannelPairs(kMergeNormal, dst_alpha, src_alpha, 255));
}

}  // namespace
