// SPDX-License-Identifier: MIT
// The tables themselves.
#include "merge/KSMerge.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

// The initialiser calls a kernel before main.
const std::uint32_t kComposedBeforeMain = [] {
    std::uint32_t pixels[40] = {};
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

}  // namespace
