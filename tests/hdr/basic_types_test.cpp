// SPDX-License-Identifier: MIT
// The basic types: ties of MIN and MAX, validity and printing of rectangles, bounds of lists.
#include "hdr/KSList.h"
#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "hdr/ks_assert.h"
#include "hdr/ks_color.h"
#include "hdr/ks_math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

std::string Printed(const KSRect<long>& rect, const char* label) {
    testing::internal::CaptureStdout();
    rect.PrintToStream(label);
    return testing::internal::GetCapturedStdout();
}

TEST(KSRect, IsInvalidUntilGivenARectangle) {
    EXPECT_EQ(KSRect<long>(), KSRect<long>(1, 1, -1, -1));
    EXPECT_FALSE(KSRect<long>().IsValid());
    EXPECT_TRUE(KSRect<long>(3, 4, 3, 4).IsValid());
    EXPECT_FALSE(KSRect<long>(0, 1, 5, 0).IsValid());
    EXPECT_EQ(KSRect<long>(10, 20, 13, 21).PixelWidth(), 4);
    EXPECT_EQ(KSRect<long>(10, 20, 13, 21).PixelHeight(), 2);
}

TEST(KSRect, EqualsWhatHasTheSameCoordinates) {
    EXPECT_EQ(KSRect<long>(1, 2, 3, 4), KSRect<long>(1, 2, 3, 4));
    for (const KSRect<long> other : {KSRect<long>(0, 2, 3, 4), {1, 0, 3, 4}, {1, 2, 0, 4}, {1, 2, 3, 0}})
        EXPECT_NE(KSRect<long>(1, 2, 3, 4), other);
    EXPECT_EQ(KSPoint<long>(1, 2), KSPoint<long>(1, 2));
    EXPECT_NE(KSPoint<long>(1, 2), KSPoint<long>(0, 2));
    EXPECT_NE(KSPoint<long>(1, 2), KSPoint<long>(1, 0));
}

TEST(KSRect, PrintsWithAndWithoutALabel) {
    EXPECT_EQ(Printed({0, 0, 9, 4}, "frame:"),
              "KSRect  frame: l:0.00 | t:0.00 | r:9.00 | b:4.00 | w:10.00 | h:5.00\n");
    EXPECT_EQ(Printed({5, 5, 4, 9}, nullptr),
              "Invalid KSRect  l:5.00 | t:5.00 | r:4.00 | b:9.00 | w:0.00 | h:5.00\n");
    const long least = std::numeric_limits<long>::min(), most = std::numeric_limits<long>::max();
    EXPECT_NE(Printed({least, least, most, most}, nullptr).find("w:18446744073709551616.00"),
              std::string::npos);
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
    EXPECT_EQ(list.CountItems(), 2);
    EXPECT_EQ(*list.ItemAt(1), 6);
    EXPECT_EQ(list.ItemAt(2), nullptr);
    EXPECT_EQ(list.ItemAt(-1), nullptr);
    list.MakeEmpty();
    EXPECT_TRUE(list.IsEmpty());
}

TEST(Color, PacksIntoAPixelWord) {
    EXPECT_EQ(ks_pixel_word(ks_color(0x11, 0x22, 0x33, 0x44)), 0x44112233u);
}

TEST(AssertDeathTest, NamesConditionFileAndFunction) {
    KS_ASSERT(1 + 1 == 2);
    EXPECT_DEATH(KS_ASSERT(1 + 1 == 3), "^basic_types_test: TestBody: assertion \"1 \\+ 1 == 3\" failed");
}

}  // namespace
