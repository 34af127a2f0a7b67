// SPDX-License-Identifier: MIT
// The tables themselves, worked values, and the pixels promised on every processor.
#include "tests/published.h"
#include "tests/reference/composition.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
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

using Oracle = Word(ks_composition_mode, Word dst, Word src, Word opacity, const reference::Random&);

struct WorkedPixel {
    const char* name;
    Oracle* oracle;
    ks_composition_mode mode;
    Word dst, src, opacity, want;
};

constexpr Oracle *OnPixel = reference::ComposePixel, *InRun = reference::ComposeInRun,
                 *InArray = reference::ComposeInArray;

// Values worked by hand, which the reference is held to as the kernels are held to the reference.
constexpr WorkedPixel kWorked[] = {
    // name, oracle, mode, dst, src, opacity, want
    {"OpaqueDividesBy256", OnPixel, kMergeNormal, 0xFFFFFFFF, 0x80FFFFFF, 255, 0xFFFEFEFE},
    {"MeanDividesBySumPlus1", OnPixel, kMergeNormal, 0x80FFFFFF, 0x80FFFFFF, 255, 0xBFFEFEFE},
    {"ClearTakesSource", OnPixel, kMergeNormal, 0x00123456, 0x80FFFFFF, 128, 0x40FFFFFF},
    {"ClearTakesSourceUnblended", OnPixel, kMergeMultiply, 0x00112233, 0x80FFFFFF, 128, 0x40FFFFFF},
    {"ClearTakesSourceAtOpacity0", OnPixel, kMergeAdd, 0x00112233, 0x80FFFFFF, 0, 0x00FFFFFF},
    {"Multiply", OnPixel, kMergeMultiply, 0xFF808080, 0xFF808080, 255, 0xFF404040},
    {"Screen", OnPixel, kMergeScreen, 0xFF808080, 0xFF808080, 255, 0xFFBFBFBF},
    {"HalfCoveredFades", OnPixel, kMergeAdd, 0x80406080, 0xFF404040, 255, 0xFF607080},
    {"HueOfYellow", OnPixel, kMergeReplaceHue, 0xFFFF0000, 0xFFFFFF00, 255, 0xFFFFFF00},
    {"HueOfGrey", OnPixel, kMergeReplaceHue, 0xFFFF0000, 0xFF808080, 255, 0xFFFF00FF},
    {"ColorOfGrey", OnPixel, kMergeReplaceColor, 0xFFFF0000, 0xFF808080, 255, 0xFFFFFFFF},
    {"EraseIgnoresOpacity", OnPixel, kMergeErase, 0xFF112233, 0x40000000, 0, 0xBF112233},
    {"OverKeepsAlpha", OnPixel, kMergeOver, 0xFF112233, 0x01FFFFFF, 0, 0x01FFFFFF},
    {"OverlayIsOpaque", OnPixel, kMergeOverlay, 0x00000000, 0x80FFFFFF, 255, 0xFF808080},
    {"OverlayOfNothing", OnPixel, kMergeOverlay, 0x33445566, 0x80FFFFFF, 1, 0x33445566},
    {"EraseInARunScales", InRun, kMergeErase, 0x800A141E, 0x80000000, 255, 0x3F0A141E},
    {"EraseOnAPixelSubtracts", OnPixel, kMergeErase, 0x800A141E, 0x80000000, 255, 0x000A141E},
    {"ClearMask", InArray, kMergeAlphaMask, 0xC8090909, 0x00123456, 255, 0},
    {"OpaqueMask", InArray, kMergeAlphaMask, 0xC8090909, 0xFF123456, 255, 0xC8090909},
    {"HalfMask", InArray, kMergeAlphaMask, 0xC8090909, 0x80123456, 255, 0x64090909},
    {"MaskOfNothing", InArray, kMergeAlphaMask, 0x00090909, 0x80123456, 255, 0},
};

TEST(WorkedValues, HoldForTheReference) {
    for (const WorkedPixel& row : kWorked)
        EXPECT_EQ(row.oracle(row.mode, row.dst, row.src, row.opacity, std::rand), row.want) << row.name;
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

TEST(PublishedHashes, HoldAtEveryLevel) {
    Sequence sequence;
    Row dst(4096), src(4096);
    for (std::size_t i = 0; i < dst.size(); i++) {
        dst[i] = sequence.NextPixel();
        src[i] = sequence.NextPixel();
    }
    for (const Level level : Levels())
        for (const PublishedHash& published : kPublished) {
            const ScopedLevel held(level);
            SCOPED_TRACE(std::string(KSMerge::composition_label[published.mode]) + " on " + NameOf(level));
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
