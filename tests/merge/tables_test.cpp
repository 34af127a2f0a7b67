// SPDX-License-Identifier: MIT
// The tables themselves, worked values, and the pixels promised on every processor.
#include "tests/published.h"
#include "tests/reference/composition.h"
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
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

using Oracle = Word(ks_composition_mode, Word dst, Word src, Word opacity);

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
    {"ClearTakesSourceAtOpacity0", OnPixel, kMergeAdd, 0x00112233, 0x80FFFFFF, 0, 0x00FFFFFF},
    {"Multiply", OnPixel, kMergeMultiply, 0xFF808080, 0xFF808080, 255, 0xFF404040},
    {"HalfCoveredFades", OnPixel, kMergeAdd, 0x80406080, 0xFF404040, 255, 0xFF607080},
    {"HueOfYellow", OnPixel, kMergeReplaceHue, 0xFFFF0000, 0xFFFFFF00, 255, 0xFFFFFF00},
    {"HueOfGrey", OnPixel, kMergeReplaceHue, 0xFFFF0000, 0xFF808080, 255, 0xFFFF00FF},
    {"ColorOfGrey", OnPixel, kMergeReplaceColor, 0xFFFF0000, 0xFF808080, 255, 0xFFFFFFFF},
    {"OverKeepsAlpha", OnPixel, kMergeOver, 0xFF112233, 0x01FFFFFF, 0, 0x01FFFFFF},
    {"OverlayOfNothing", OnPixel, kMergeOverlay, 0x33445566, 0x80FFFFFF, 1, 0x33445566},
    {"EraseInARunScales", InRun, kMergeErase, 0x800A141E, 0x80000000, 255, 0x3F0A141E},
    {"EraseOnAPixelSubtracts", OnPixel, kMergeErase, 0x800A141E, 0x80000000, 255, 0x000A141E},
    {"HalfMask", InArray, kMergeAlphaMask, 0xC8090909, 0x80123456, 255, 0x64090909},
};

TEST(WorkedValues, HoldForTheReference) {
    for (const WorkedPixel& row : kWorked)
        EXPECT_EQ(row.oracle(row.mode, row.dst, row.src, row.opacity), row.want) << row.name;
}

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
