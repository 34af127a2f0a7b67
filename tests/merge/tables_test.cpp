// SPDX-License-Identifier: MIT
// The tables themselves, worked values, Dissolve's random numbers, and the pixels promised on every
// processor.
#include "tests/instruction_sets.h"
#include "tests/merge/modes.h"
#include "tests/published.h"
#include "tests/reference/composition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using Word = std::uint32_t;
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
    const char* const labels[] = {"Normal",
                                  "Multiply",
                                  "Screen",
                                  "Erase",
                                  "Add",
                                  "Subtract",
                                  "Darkest",
                                  "Lightest",
                                  "Difference",
                                  "Average",
                                  "Invert",
                                  "Dissolve",
                                  "Replace Hue",
                                  "Replace Saturation",
                                  "Replace Luminosity",
                                  "Replace Color",
                                  "XOR Mask",
                                  "Alpha Mask",
                                  "Copy",
                                  "Over",
                                  "Filter",
                                  "Overlay"};
    static_assert(std::size(labels) == kMergeCount);
    for (int mode = 0; mode < kMergeCount; mode++) {
        EXPECT_STREQ(KSMerge::composition_label[mode], labels[mode]);
        EXPECT_EQ(KSMerge::merge_destructive[mode], mode == kMergeAlphaMask || mode == kMergeCopy);
    }
}

struct WorkedPixel {
    const char* name;
    ks_composition_mode mode;
    Word dst, src, opacity, want;
};

// Values worked by hand, so that the reference too is held to something.
constexpr WorkedPixel kWorked[] = {
    // name                        mode                dst         src         opacity want
    {"OpaqueDividesBy256", kMergeNormal, 0xFFFFFFFF, 0x80FFFFFF, 255, 0xFFFEFEFE},
    {"MeanDividesBySumPlus1", kMergeNormal, 0x80FFFFFF, 0x80FFFFFF, 255, 0xBFFEFEFE},
    {"ClearTakesSource", kMergeNormal, 0x00123456, 0x80FFFFFF, 128, 0x40FFFFFF},
    {"ClearTakesSourceUnblended", kMergeMultiply, 0x00112233, 0x80FFFFFF, 128, 0x40FFFFFF},
    {"ClearTakesSourceAtOpacity0", kMergeAdd, 0x00112233, 0x80FFFFFF, 0, 0x00FFFFFF},
    {"Multiply", kMergeMultiply, 0xFF808080, 0xFF808080, 255, 0xFF404040},
    {"Screen", kMergeScreen, 0xFF808080, 0xFF808080, 255, 0xFFBFBFBF},
    {"HalfCoveredFades", kMergeAdd, 0x80406080, 0xFF404040, 255, 0xFF607080},
    {"HueOfYellow", kMergeReplaceHue, 0xFFFF0000, 0xFFFFFF00, 255, 0xFFFFFF00},
    {"HueOfGrey", kMergeReplaceHue, 0xFFFF0000, 0xFF808080, 255, 0xFFFF00FF},
    {"ColorOfGrey", kMergeReplaceColor, 0xFFFF0000, 0xFF808080, 255, 0xFFFFFFFF},
    {"EraseIgnoresOpacity", kMergeErase, 0xFF112233, 0x40000000, 0, 0xBF112233},
    {"OverKeepsAlpha", kMergeOver, 0xFF112233, 0x01FFFFFF, 0, 0x01FFFFFF},
    {"OverlayIsOpaque", kMergeOverlay, 0x00000000, 0x80FFFFFF, 255, 0xFF808080},
    {"OverlayOfNothing", kMergeOverlay, 0x33445566, 0x80FFFFFF, 1, 0x33445566},
};

TEST(WorkedValues, HoldForPixelsAndTheirReference) {
    for (const WorkedPixel& row : kWorked) {
        EXPECT_EQ(KSMerge::hash_pixel_func[row.mode](row.dst, row.src, row.opacity), row.want) << row.name;
        EXPECT_EQ(reference::ComposePixel(row.mode, row.dst, row.src, row.opacity), row.want) << row.name;
    }
}

TEST(WorkedValues, HoldWhereRunsDifferFromPixels) {
    Word erased = 0x800A141E;
    KSMerge::hash_color_func[kMergeErase](&erased, 0x80000000, 255, 1);
    EXPECT_EQ(erased, 0x3F0A141Eu);
    EXPECT_EQ(KSMerge::hash_pixel_func[kMergeErase](0x800A141E, 0x80000000, 255), 0x000A141Eu);

    Row masked = {0xC8090909, 0xC8090909, 0xC8090909, 0x00090909};
    const Row masks = {0x00123456, 0xFF123456, 0x80123456, 0x80123456};
    KSMerge::hash_array_func[kMergeAlphaMask](masked.data(), masks.data(), 255, 4);
    EXPECT_EQ(masked, Row({0, 0xC8090909, 0x64090909, 0}));
}

// Sources whose thresholds include 0 and 255, which must and must not draw a number.
TEST(Dissolve, DrawsOneNumberPerUncertainPixelInOrder) {
    Row src, dst;
    for (Word i = 0; i < 600; i++) {
        src.push_back((i * 7 % 256) << 24 | i);
        dst.push_back(0x55000000 + i);
    }
    for (const InstructionSet set : RunnableInstructionSets())
        for (const Word opacity : {255u, 254u, 100u, 0u}) {
            const ScopedInstructionSet forced(set);
            Row array = dst, run = dst, want_array = dst, want_run = dst;
            std::srand(42);
            for (std::size_t i = 0; i < dst.size(); i++)
                want_array[i] = reference::ComposePixel(kMergeDissolve, dst[i], src[i], opacity);
            for (std::size_t i = 0; i < dst.size(); i++)
                want_run[i] = reference::ComposePixel(kMergeDissolve, dst[i], 0x80FF8040, opacity);
            const int next = std::rand();
            std::srand(42);
            KSMerge::hash_array_func[kMergeDissolve](array.data(), src.data(), opacity, 600);
            KSMerge::hash_color_func[kMergeDissolve](run.data(), 0x80FF8040, opacity, 600);
            EXPECT_EQ(std::rand(), next);
            EXPECT_EQ(array, want_array);
            EXPECT_EQ(run, want_run);
        }
}

TEST(Dissolve, DrawsNothingForOpaquePixels) {
    Row run(100);
    std::srand(1);
    const int first = std::rand();
    std::srand(1);
    KSMerge::hash_color_func[kMergeDissolve](run.data(), 0xFF123456, 255, 100);
    KSMerge::hash_color_func[kMergeDissolve](run.data(), 0, 255, -5);
    EXPECT_EQ(KSMerge::hash_pixel_func[kMergeDissolve](0, 0xFF123456, 255), 0xFF123456u);
    EXPECT_EQ(std::rand(), first);
    EXPECT_EQ(run, Row(100, 0xFF123456));
}

// A promise to keep: what these operations yield is the same on every processor and in every release. A hash
// is that of 4096 pixels composed in runs of 61 with colours and opacities in turn, and then of 4096 composed
// as arrays.
struct PublishedHash {
    ks_composition_mode mode;
    std::uint64_t runs, arrays;
};

constexpr PublishedHash kPublished[] = {
    {kMergeNormal, 0x004E5A7C51588721, 0xC7D4A584F6E80ABE},
    {kMergeMultiply, 0xA30DA2F16C6E3D40, 0x7051BE7184AF637C},
    {kMergeScreen, 0x95E4FF0457F7580A, 0xBB88884D4030B12C},
    {kMergeErase, 0x7BD57D0D8799BC78, 0x438D141A0BAF4E07},
    {kMergeAdd, 0x85FDCD75C9DD6F7A, 0x6AB7990FB507DFD5},
    {kMergeSubtract, 0x40F108216D1840D7, 0x0E4596E7D09AD618},
    {kMergeDarkest, 0x1AE1ECABDF8DDA35, 0x92D952A7B8C4DB47},
    {kMergeLightest, 0xB624D5B1085428F1, 0xAF37AE1C36E7F26B},
    {kMergeDifference, 0xC3D0F0A0D1D3C17A, 0xEEC96DEDA50796C6},
    {kMergeAverage, 0xE911671A2009D8BF, 0xA7E95E7B58FB7626},
    {kMergeInvert, 0x0553F3A225A45B18, 0x2421035AA9C7040F},
    {kMergeReplaceHue, 0xE38787F25C869040, 0x7B4BABD538563C86},
    {kMergeReplaceSaturation, 0x8FC258DC3FA8170F, 0x1234400C6EBF0C74},
    {kMergeReplaceLuminosity, 0x3100F2B6945B6BA9, 0xB56518D2C7EB12E1},
    {kMergeReplaceColor, 0xC1F08C25EEBDE692, 0x95E014C6BF95E2A4},
    {kMergeXorMask, 0x2FE9B5B2CEEFA2E5, 0xAAA18507CD7B8ACE},
    {kMergeAlphaMask, 0x2FE9B5B2CEEFA2E5, 0xEDCBDAFE5298EAF6},
    {kMergeCopy, 0xFFEEB475D141D015, 0xF57CD578E5D65822},
    {kMergeOver, 0x54E306C33A46EE30, 0xB4A3C9A000CC58D5},
    {kMergeFilter, 0x004E5A7C51588721, 0xC7D4A584F6E80ABE},
    {kMergeOverlay, 0xBAF002C873A8340F, 0xC6FA01C088620C61},
};

TEST(PublishedHashes, HoldOnEveryInstructionSet) {
    Sequence sequence;
    Row dst(4096), src(4096);
    for (std::size_t i = 0; i < dst.size(); i++) {
        dst[i] = sequence.NextPixel();
        src[i] = sequence.NextPixel();
    }
    for (const InstructionSet set : RunnableInstructionSets())
        for (const PublishedHash& published : kPublished) {
            const ScopedInstructionSet forced(set);
            SCOPED_TRACE(ModeName(published.mode) + " on " + NameOf(set));
            Row runs = dst, arrays = dst;
            for (std::size_t i = 0; i < dst.size(); i += 61) {
                const Word opacity = i % 2 ? 255 : src[i] & 255;
                const auto count = static_cast<std::int32_t>(std::min<std::size_t>(61, dst.size() - i));
                KSMerge::hash_color_func[published.mode](&runs[i], src[i], opacity, count);
                KSMerge::hash_array_func[published.mode](&arrays[i], &src[i], opacity, count);
            }
            EXPECT_EQ(HashOf<Word>(runs), published.runs) << std::hex << HashOf<Word>(runs);
            EXPECT_EQ(HashOf<Word>(arrays), published.arrays) << std::hex << HashOf<Word>(arrays);
        }
}

}  // namespace
