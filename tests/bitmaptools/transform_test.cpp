// SPDX-License-Identifier: MIT
// Transformation equals its definition on every instruction set, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <array>
#include <cmath>
#include <limits>

namespace {

using Corners = std::array<KSPoint<double>, 4>;

void ExpectTransformed(Random& random, const KSRect<long>& from, const Corners& p, const KSRect<long>& to) {
    TestImage source(random, from.PixelWidth(), from.PixelHeight());
    TestImage destination(random, to.PixelWidth(), to.PixelHeight());
    random.Paint(source.array.items());
    const auto transform = [&](auto function, const std::uint32_t* pixels, std::uint32_t* result) {
        function(from, p[0], p[1], p[2], p[3], to, pixels, result,
                 static_cast<std::uint32_t>(source.row_length),
                 static_cast<std::uint32_t>(destination.row_length));
    };
    ExpectLikeReference(random, source, destination, [&](auto tools, const auto* pixels, auto* result) {
        transform(decltype(tools)::type::TransformPlain, pixels, result);
    });
    ExpectLikeReference(random, source, destination, [&](auto tools, const auto* pixels, auto* result) {
        transform(decltype(tools)::type::TransformBiLin, pixels, result);
    });
}

// Quadrilaterals of any shape: convex and not, mirrored, with parallel sides, shrunk to a line or a point.
TEST(Transform, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 600 && !HasFailure(); ++seed) {
        Random random(seed);
        const long origin = random.OneIn(5) ? -65600 : random.In(-100, 100);
        const double left = static_cast<double>(origin), right = left + static_cast<double>(random.In(0, 90));
        Corners p = {{{left, left}, {right, left}, {right, right}, {left, right}}};
        const bool whole = random.OneIn(3);
        if (!random.OneIn(4))
            for (auto& point : p) {
                point = {point.x + random.Real(-30, 30), point.y + random.Real(-30, 30)};
                if (whole)
                    point = {std::floor(point.x), std::floor(point.y)};
            }
        if (random.OneIn(8))
            p[2] = p[1];
        const long to_left = origin + random.In(-20, 20), to_top = origin + random.In(-20, 20);
        ExpectTransformed(random, {0, 0, random.Size() - 1, random.Size() - 1}, p,
                          {to_left, to_top, to_left + random.Size() - 1, to_top + random.Size() - 1});
    }
}

// Over the rows the last position of a block moves across the source's last column, and the rows across its
// last row, in steps of less than 1/4096 of a pixel: a position exactly there has no neighbour beyond.
TEST(Transform, ReadsNothingBeyondTheLastColumnAndRow) {
    constexpr long kRows = 9000;
    Random random(2);
    TestImage source(66, 2, 66, Against::kBack);
    TestImage destination(64, kRows, 64, Against::kBack);
    random.Paint(source.array.items());
    ExpectLikeReference(random, source, destination, [](auto tools, const auto* pixels, auto* result) {
        decltype(tools)::type::TransformBiLin({0, 0, 65, 1}, {0, 0}, {65.4, 0}, {65.6, kRows}, {0, kRows},
                                              {2, 0, 65, kRows - 1}, pixels, result, 66, 64);
    });
}

TEST(Transform, TakesTheLastColumnAndRowAtTheFarSides) {
    // b = (2, 0), c = (0, -2), a = (1, 0): exact positions with t = 1 on the right side and v = 0 at the
    // bottom.
    Random random(1);
    ExpectTransformed(random, {0, 0, 1, 1}, {{{0, 0}, {3, 0}, {2, 2}, {0, 2}}}, {-1, -1, 4, 4});
    TestImage source(2, 2, 2, Against::kBack);
    const std::uint32_t pixels[] = {1, 2, 3, 4};
    std::copy(std::begin(pixels), std::end(pixels), source.array.items().begin());
    std::uint32_t corner = 99;
    KSBitmapTools::TransformPlain({0, 0, 1, 1}, {0, 0}, {3.5, 0.5}, {2, 2}, {0, 2}, {2, 2, 2, 2},
                                  source.array.data(), &corner, 2, 1);
    EXPECT_EQ(corner, 4u);
}

TEST(Transform, WorkedValues) {
    const std::vector<std::uint32_t> source = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    std::vector<std::uint32_t> got(16, 99);
    KSBitmapTools::TransformPlain({0, 0, 2, 2}, {0, 0}, {3, 0}, {3, 3}, {0, 3}, {0, 0, 3, 3}, source.data(),
                                  got.data(), 3, 4);
    EXPECT_EQ(got[0], 99u) << "outside the quadrilateral whose corner moved to (0.1, 0.1)";
    EXPECT_EQ(got[5], 1u);
    EXPECT_EQ(got[10], 5u);
}

TEST(Transform, DegenerateAndHostileArgumentsWriteNothing) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr long least = std::numeric_limits<long>::min(), most = std::numeric_limits<long>::max();
    const KSRect<long> rect(0, 0, 0, 0);
    const struct {
        KSRect<long> from;
        Corners p;
        KSRect<long> to;
    } rows[] = {
        {rect, {{{0, 0}, {4, 1}, {9, 3}, {0, 3}}}, {0, 1, 0, 0}},
        {{5, 0, 4, 0}, {{{-5, -5}, {5, -4}, {5, 5}, {-5, 5}}}, rect},
        {{least, 0, most, 0}, {{{-5, -5}, {5, -4}, {5, 5}, {-5, 5}}}, rect},
        {rect, {{{-5, -5}, {5, -4}, {5, 5}, {-5, 5}}}, {most, most, most, most}},
        {rect, {{{nan, -5}, {5, -4}, {5, 5}, {-5, 5}}}, rect},
        {rect, {{{-5, -5}, {infinity, -4}, {5, 5}, {-5, 5}}}, rect},
        {rect, {{{-1e300, -1e300}, {1e300, -1e300}, {1e300, 1e300}, {-1e300, 1e300}}}, rect},
        {rect, {{{8, 8}, {8, 8}, {8, 8}, {8, 8}}}, rect},
        {rect, {{{0, 0}, {5, -4}, {0, 0}, {0, 0}}}, rect},
    };
    for (const auto transform : {KSBitmapTools::TransformPlain, KSBitmapTools::TransformBiLin})
        for (const auto& row : rows) {
            const std::uint32_t source = 1;
            std::uint32_t pixel = 7;
            transform(row.from, row.p[0], row.p[1], row.p[2], row.p[3], row.to, &source, &pixel, 1, 1);
            EXPECT_EQ(pixel, 7u) << "row " << &row - rows;
        }
}

// Sources so large that positions in them do not fit 32 bits, spread out and then all seen at once.
TEST(Transform, EqualsItsDefinitionOnWideImages) {
    for (std::uint32_t seed = 0; seed < 2 && !HasFailure(); ++seed) {
        Random random(seed);
        const long last = (1 << 18) + random.In(-2, 9);
        const auto right = static_cast<double>(last);
        ExpectTransformed(random, {0, 0, last, 3}, {{{0, 0}, {right, 5}, {right + 9, 40}, {3, 44}}},
                          {last - 80, -5, last + 20, 60});
        ExpectTransformed(random, {0, 0, last, 3}, {{{0, 0}, {90, 5}, {80, 60}, {3, 44}}}, {-5, -5, 95, 66});
    }
}

TEST(Transform, HugeSources) {
    constexpr long least = std::numeric_limits<std::int32_t>::min();
    constexpr long most = std::numeric_limits<std::int32_t>::max();
    const Corners p = {{{0, 0}, {37.5, 1}, {34, 36}, {1, 33}}};
    for (const KSRect<long>& from :
         {KSRect<long>(0, 0, 0, 500000), KSRect<long>(0, 0, 0, 1 << 19), KSRect<long>(0, least, 0, most)}) {
        Random random(static_cast<std::uint32_t>(from.bottom));
        TestImage source(1, 1, 1, Against::kBack), destination(40, 40, 40, Against::kBack);
        source.array.items()[0] = 0x80654321;
        ExpectLikeReference(random, source, destination, [&](auto tools, const auto* pixels, auto* result) {
            decltype(tools)::type::TransformPlain(from, p[0], p[1], p[2], p[3], {0, 0, 39, 39}, pixels,
                                                  result, 0, 40);
        });
        ExpectLikeReference(random, source, destination, [&](auto tools, const auto* pixels, auto* result) {
            decltype(tools)::type::TransformBiLin(from, p[0], p[1], p[2], p[3], {0, 0, 39, 39}, pixels,
                                                  result, 0, 40);
        });
    }
}

}  // namespace
