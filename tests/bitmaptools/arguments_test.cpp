// SPDX-License-Identifier: MIT
// Arguments for which nothing is written.
#include "bitmaptools/KSBitmapTools.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdint>
#include <limits>

namespace {

using Tools = KSBitmapTools;
using Rect = KSRect<long>;
using Word = std::uint32_t;
using Corners = std::array<KSPoint<double>, 4>;

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
        {0, 0, -1, 0},         {0, 1, 0, 0},          {LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX},
        {kLeast - 1, 0, 0, 0}, {0, kLeast - 1, 0, 0}, {LONG_MAX, LONG_MAX, LONG_MIN, LONG_MIN},
        {0, 0, kMost + 1, 0},  {0, 0, 0, kMost + 1},  {LONG_MAX, LONG_MAX, LONG_MAX, LONG_MAX},
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
    Tools::NoiseRemover(nullptr, 0, 4000000000u, 3, 3);
    Tools::NoiseRemover(nullptr, 4000000000u, 0, 3, 3);
    EXPECT_EQ(pixel, 7u);
}

}  // namespace
