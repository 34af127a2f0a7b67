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

constexpr Word kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF;
const Row kNumbers = {1, 2, 3, 4, 5, 6, 7, 8, 9};

TEST(WorkedValues, OfScaling) {
    const auto scaled = [](auto scale, int size, const Row& from, int to_size) {
        Row to(static_cast<std::size_t>(to_size * to_size), 99);
        scale(size, size, to_size, to_size, from.data(), to.data(), size, to_size);
        return to;
    };
    const Row colors = {kRed, kBlue, kGreen, kWhite};
    EXPECT_EQ(scaled(Tools::ScalePlain, 2, colors, 3),
              Row({kRed, kRed, kBlue, kRed, kRed, kBlue, kGreen, kGreen, kWhite}));
    EXPECT_EQ(scaled(Tools::ScaleBiLin, 2, colors, 2), Row({0x40FF0000, 0x807F007F, 0x807F7F00, 0xFF7F7F7F}));
    EXPECT_EQ(scaled(Tools::ScaleBiLin, 1, {0x00FFFFFF}, 2), Row({0, 0, 0, 0})) << "clear pixels become 0";
}

TEST(WorkedValues, OfQuarterTurns) {
    const Rect rect(0, 0, 2, 2);
    Row to(9);
    Tools::RotatePlain(rect, rect, {1, 1}, std::numbers::pi / 2, kNumbers.data(), to.data(), 3, 3);
    EXPECT_EQ(to, Row({3, 6, 9, 2, 5, 8, 1, 4, 7}));
}

TEST(WorkedValues, OfTransformation) {
    const auto transformed = [](Corners p, int size, Rect rect) {
        Row to(static_cast<std::size_t>(rect.PixelWidth() * rect.PixelHeight()), 99);
        Tools::TransformPlain({0, 0, size - 1, size - 1}, p[0], p[1], p[2], p[3], rect, kNumbers.data(),
                              to.data(), static_cast<Word>(size), static_cast<Word>(rect.PixelWidth()));
        return to;
    };
    EXPECT_EQ(transformed({{{0, 0}, {3, 0}, {3, 3}, {0, 3}}}, 3, {0, 0, 1, 1}), Row({99, 99, 99, 1}))
        << "the first corner moves to (0.1, 0.1)";
    EXPECT_EQ(transformed({{{0, 0}, {3.5, 0.5}, {2, 2}, {0, 2}}}, 2, {2, 2, 2, 2}), Row({4}))
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
    const Rect bad_rects[] = {
        {0, 0, -1, 0},
        {0, 1, 0, 0},
        {LONG_MIN, 0, LONG_MAX, 0},
        {LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX},
        {LONG_MIN, LONG_MIN, LONG_MIN, LONG_MIN},
        {LONG_MAX, LONG_MAX, LONG_MAX, LONG_MAX},
        {LONG_MAX, LONG_MAX, LONG_MIN, LONG_MIN},
        {kLeast - 1, 0, 0, 0},
        {0, kLeast - 1, 0, 0},
        {0, 0, kMost + 1, 0},
        {0, 0, 0, kMost + 1},
    };
    for (const Rect& bad : bad_rects) {
        rotate(bad, rect, {0, 0}, 0);
        rotate(rect, bad, {0, 0}, 0);
        rotate(bad, bad, {0, 0}, 0);
        transform(bad, around, rect);
        transform(rect, around, bad);
        ASSERT_EQ(pixel, 7u) << "rectangle " << &bad - bad_rects;
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
