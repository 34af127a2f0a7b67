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

void Turned(long last, KSPoint<double> centre, double angle, const Word* from, Word* to) {
    const Rect rect(0, 0, last, last);
    const auto length = static_cast<Word>(last + 1);
    Tools::RotatePlain(rect, rect, centre, angle, from, to, length, length);
}

TEST(WorkedValues, OfScalingRotationAndTransformation) {
    constexpr Word kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF;
    const Row numbers = {1, 2, 3, 4, 5, 6, 7, 8, 9}, colors = {kRed, kBlue, kGreen, kWhite};
    const struct {
        const char* name;
        void (*operation)(const Word* from, Word* to);
        Row from, want;
    } rows[] = {
        {"PlainTwoToThree",
         [](auto from, auto to) { Tools::ScalePlain(2, 2, 3, 3, from, to, 2, 3); },
         colors,
         {kRed, kRed, kBlue, kRed, kRed, kBlue, kGreen, kGreen, kWhite}},
        {"BilinearOneToTwo",
         [](auto from, auto to) { Tools::ScaleBiLin(1, 1, 2, 2, from, to, 1, 2); },
         {kWhite},
         {0x40FFFFFF, 0x80FFFFFF, 0x80FFFFFF, 0xFFFFFFFF}},
        {"BilinearSameSize",
         [](auto from, auto to) { Tools::ScaleBiLin(2, 2, 2, 2, from, to, 2, 2); },
         colors,
         {0x40FF0000, 0x807F007F, 0x807F7F00, 0xFF7F7F7F}},
        {"BilinearClearIsZero",
         [](auto from, auto to) { Tools::ScaleBiLin(1, 1, 2, 2, from, to, 1, 2); },
         {0x00FFFFFF},
         {0, 0, 0, 0}},
        {"NoTurn",
         [](auto from, auto to) {
             Turned(1, {7.25, -3}, 0, from, to);
         },
         numbers,
         {1, 2, 3, 4}},
        {"HalfTurn",
         [](auto from, auto to) {
             Turned(1, {0.5, 0.5}, kPi, from, to);
         },
         numbers,
         {4, 3, 2, 1}},
        {"QuarterTurn",
         [](auto from, auto to) {
             Turned(2, {1, 1}, kPi / 2, from, to);
         },
         numbers,
         {3, 6, 9, 2, 5, 8, 1, 4, 7}},
        {"TurnedAway",
         [](auto from, auto to) {
             Turned(1, {50, 50}, kPi, from, to);
         },
         numbers,
         {99, 99, 99, 99}},
        {"MovedCorner",  // to (0.1, 0.1), which leaves the first pixel outside
         [](auto from, auto to) {
             Tools::TransformPlain({0, 0, 2, 2}, {0, 0}, {3, 0}, {3, 3}, {0, 3}, {0, 0, 1, 1}, from, to, 3,
                                   2);
         },
         numbers,
         {99, 99, 99, 1}},
        {"FarSidesAreInTheLastColumnAndRow",
         [](auto from, auto to) {
             Tools::TransformPlain({0, 0, 1, 1}, {0, 0}, {3.5, 0.5}, {2, 2}, {0, 2}, {2, 2, 2, 2}, from, to,
                                   2, 1);
         },
         numbers,
         {4}},
    };
    for (const auto& row : rows) {
        Row got(row.want.size(), 99);
        row.operation(row.from.data(), got.data());
        EXPECT_EQ(got, row.want) << row.name;
    }
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
