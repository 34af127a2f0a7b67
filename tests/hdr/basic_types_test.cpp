// SPDX-License-Identifier: MIT
// The basic types: rectangles, ties of MIN and MAX, bounds of lists, pixel words, assertions.
#include "hdr/KSList.h"
#include "hdr/KSRect.h"
#include "hdr/ks_assert.h"
#include "hdr/ks_color.h"
#include "hdr/ks_math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(KSRect, PrintsWhatItHolds) {
    constexpr long least = std::numeric_limits<long>::min(), most = std::numeric_limits<long>::max();
    const struct {
        KSRect<long> rect;
        const char *label, *text;
    } rows[] = {
        {{0, 0, 9, 4}, "frame:", "KSRect  frame: l:0.00 | t:0.00 | r:9.00 | b:4.00 | w:10.00 | h:5.00\n"},
        {{}, nullptr, "Invalid KSRect  l:1.00 | t:1.00 | r:-1.00 | b:-1.00 | w:-1.00 | h:-1.00\n"},
        {{5, 5, 4, 9}, "", "Invalid KSRect   l:5.00 | t:5.00 | r:4.00 | b:9.00 | w:0.00 | h:5.00\n"},
        {{0, 1, 5, 0}, nullptr, "Invalid KSRect  l:0.00 | t:1.00 | r:5.00 | b:0.00 | w:6.00 | h:0.00\n"},
        {{3, 4, 3, 4}, nullptr, "KSRect  l:3.00 | t:4.00 | r:3.00 | b:4.00 | w:1.00 | h:1.00\n"},
        {{least, 0, most, 0},
         nullptr,
         "KSRect  l:-9223372036854775808.00 | t:0.00 | r:9223372036854775808.00 | b:0.00 | "
         "w:18446744073709551616.00 | h:1.00\n"},
    };
    for (const auto& row : rows) {
        testing::internal::CaptureStdout();
        row.rect.PrintToStream(row.label);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.text);
    }
    EXPECT_EQ(KSRect<long>(10, 20, 13, 21).PixelWidth(), 4);
    EXPECT_EQ(KSRect<long>(10, 20, 13, 21).PixelHeight(), 2);
}

TEST(Math, TiesGoToTheSecondValue) {
    EXPECT_TRUE(std::signbit(MIN(0.0, -0.0)));
    EXPECT_TRUE(std::signbit(MAX(0.0, -0.0)));
    EXPECT_EQ(MIN(3L, -4L), -4L);
    EXPECT_EQ(MAX(3UL, 4UL), 4UL);
    long a = 7, b = 2;
    NORM(a, b);
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 7);
}

TEST(KSList, AnswersNullOutsideItsItems) {
    KSList<int> list;
    EXPECT_EQ(list.ItemAt(0), nullptr);
    list.AddItem(5);
    list.AddItem(6);
    EXPECT_EQ(*list.ItemAt(1), 6);
    EXPECT_EQ(list.ItemAt(2), nullptr);
    EXPECT_EQ(list.ItemAt(-1), nullptr);
    list.MakeEmpty();
    EXPECT_EQ(list.CountItems(), 0);
}

TEST(Color, PacksIntoAPixelWord) {
    EXPECT_EQ(ks_pixel_word(ks_color(0x11, 0x22, 0x33, 0x44)), 0x44112233u);
}

TEST(AssertDeathTest, NamesConditionFileAndFunction) {
    KS_ASSERT(1 + 1 == 2);
    EXPECT_DEATH(KS_ASSERT(1 + 1 == 3), "^basic_types_test: TestBody: assertion \"1 \\+ 1 == 3\" failed");
}

}  // namespace
