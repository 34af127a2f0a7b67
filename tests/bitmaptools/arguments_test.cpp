// SPDX-License-Identifier: MIT
// Values worked by hand, and arguments for which nothing is written.
#include "bitmaptools/KSBitmapTools.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdint>
#include <limits>
#include <numbers>
#include <vector>

namespace {

using Tools = KSBitmapTools;
using Rect = KSRect<long>;
using Word = std::uint32_t;
using Row = std::vector<Word>;
using Corners = std::array<KSPoint<double>, 4>;

constexpr double kPi = std::numbers::pi;

constexpr Word kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF;
const Row kNumbers = {1, 2, 3, 4, 5, 6, 7, 8, 9};

// Each returns square images, filled with 99 before.
Row Scaled(decltype(Tools::ScalePlain) scale, int size, const Row& from, int to_size) {
    Row to(static_cast<std::size_t>(to_size * to_size), 99);
    scale(size, size, to_size, to_size, from.data(), to.data(), size, to_size);
    return to;
}
Row Turned(int size, KSPoint<double> centre, double angle) {
    const Rect rect(0, 0, size - 1, size - 1);
    const auto length = static_cast<Word>(size);
    Row to(length * length, 99);
    Tools::RotatePlain(rect, rect, centre, angle, kNumbers.data(), to.data(), length, length);
    return to;
}
Row Transformed(int size, const Corners& p, const Rect& rect) {
    const auto length = static_cast<Word>(rect.PixelWidth());
    Row to(length * length, 99);
    Tools::TransformPlain({0, 0, size - 1, size - 1}, p[0], p[1], p[2], p[3], rect, kNumbers.data(),
                          to.data(), static_cast<Word>(size), length);
    return to;
}

TEST(WorkedValues, OfScaling) {
    const Row colors = {kRed, kBlue, kGreen, kWhite};
    EXPECT_EQ(Scaled(Tools::ScalePlain, 2, colors, 3),
              Row({kRed, kRed, kBlue, kRed, kRed, kBlue, kGreen, kGreen, kWhite}));
    EXPECT_EQ(Scaled(Tools::ScaleBiLin, 1, {kWhite}, 2), Row({0x40FFFFFF, 0x80FFFFFF, 0x80FFFFFF, kWhite}));
    EXPECT_EQ(Scaled(Tools::ScaleBiLin, 2, colors, 2), Row({0x40FF0000, 0x807F007F, 0x807F7F00, 0xFF7F7F7F}));
    EXPECT_EQ(Scaled(Tools::ScaleBiLin, 1, {0x00FFFFFF}, 2), Row({0, 0, 0, 0})) << "clear pixels become 0";
}

TEST(WorkedValues, OfRotation) {
    EXPECT_EQ(Turned(2, {7.25, -3}, 0), Row({1, 2, 3, 4}));
    EXPECT_EQ(Turned(2, {0.5, 0.5}, kPi), Row({4, 3, 2, 1}));
    EXPECT_EQ(Turned(3, {1, 1}, kPi / 2), Row({3, 6, 9, 2, 5, 8, 1, 4, 7}));
    EXPECT_EQ(Turned(2, {50, 50}, kPi), Row({99, 99, 99, 99})) << "all lies outside";
}

TEST(WorkedValues, OfTransformation) {
    EXPECT_EQ(Transformed(3, {{{0, 0}, {3, 0}, {3, 3}, {0, 3}}}, {0, 0, 1, 1}), Row({99, 99, 99, 1}))
        << "the first corner moves to (0.1, 0.1)";
    EXPECT_EQ(Transformed(2, {{{0, 0}, {3.5, 0.5}, {2, 2}, {0, 2}}}, {2, 2, 2, 2}), Row({4}))
        << "the far sides belong to the last column and row";
}

TEST(Arguments, OutsideTheirRangeWriteNothing) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr long kLeast = INT_MIN, kMost = INT_MAX;  // of the plane
    const Word source = 1;
    Word pixel = 7;
    for (const auto scale : {Tools::ScalePlain, Tools::ScaleBiLin})
        for (const int size : {0, -1, INT_MIN}) {
            scale(size, 1, 1, 1, nullptr, &pixel, 1, 1);
            scale(1, size, 1, 1, nullptr, &pixel, 1, 1);
            scale(1, 1, size, 1, &source, nullptr, 1, 1);
            scale(1, 1, 1, size, &source, nullptr, 1, 1);
        }
    const Rect rect(0, 0, 0, 0);
    const Corners around = {{{-5, -5}, {5, -4}, {5, 5}, {-5, 5}}};
    const auto rotate = [&](const Rect& from, const Rect& to, KSPoint<double> centre, double angle) {
        for (const auto function : {Tools::RotatePlain, Tools::RotateBiLin})
            function(from, to, centre, angle, &source, &pixel, 1, 1);
    };
    const auto transform = [&](const Rect& from, const Corners& p, const Rect& to) {
        for (const auto function : {Tools::TransformPlain, Tools::TransformBiLin})
            function(from, p[0], p[1], p[2], p[3], to, &source, &pixel, 1, 1);
    };
    for (const Rect& bad : {Rect(0, 0, -1, 0),
                            {0, 1, 0, 0},
                            {LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX},
                            {LONG_MIN, 0, LONG_MAX, 0},
                            {LONG_MAX, LONG_MAX, LONG_MIN, LONG_MIN},
                            {LONG_MIN, LONG_MIN, LONG_MIN, LONG_MIN},
                            {LONG_MAX, LONG_MAX, LONG_MAX, LONG_MAX},
                            {kLeast - 1, 0, 0, 0},
                            {0, kLeast - 1, 0, 0},
                            {0, 0, kMost + 1, 0},
                            {0, 0, 0, kMost + 1}}) {
        SCOPED_TRACE(testing::Message()
                     << bad.left << " " << bad.top << " " << bad.right << " " << bad.bottom);
        rotate(bad, rect, {0, 0}, 0);
        rotate(rect, bad, {0, 0}, 0);
        rotate(bad, bad, {0, 0}, 0);
        transform(bad, around, rect);
        transform(rect, around, bad);
        ASSERT_EQ(pixel, 7u);
    }
    for (const KSPoint<double> bad : {KSPoint<double>(kNan, 0), {0, kInfinity}, {1e300, -1e300}})
        rotate(rect, rect, bad, 1);
    for (const double bad : {kNan, -kInfinity})
        rotate(rect, rect, {0, 0}, bad);
    for (const Corners& bad : {Corners{{{kNan, -5}, {5, -4}, {5, 5}, {-5, 5}}},
                               {{{-5, -5}, {kInfinity, -4}, {5, 5}, {-5, 5}}},
                               {{{-1e300, -1e300}, {1e300, -1e300}, {1e300, 1e300}, {-1e300, 1e300}}},
                               {{{8, 8}, {8, 8}, {8, 8}, {8, 8}}},
                               {{{0, 0}, {5, -4}, {0, 0}, {0, 0}}}})
        transform(rect, bad, rect);
    EXPECT_EQ(pixel, 7u);
}

}  // namespace
