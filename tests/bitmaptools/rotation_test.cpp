// SPDX-License-Identifier: MIT
// Rotation equals its definition on every instruction set, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

struct Turn {
    KSRect<long> from, to;
    KSPoint<double> centre;
    double angle;
};

void ExpectRotated(Random& random, const Turn& turn) {
    TestImage source(random, turn.from.PixelWidth(), turn.from.PixelHeight());
    TestImage destination(random, turn.to.PixelWidth(), turn.to.PixelHeight());
    random.Paint(source.array.items());
    const auto rotate = [&](auto function, const std::uint32_t* from, std::uint32_t* to) {
        function(turn.from, turn.to, turn.centre, turn.angle, from, to,
                 static_cast<std::uint32_t>(source.row_length),
                 static_cast<std::uint32_t>(destination.row_length));
    };
    ExpectLikeReference(random, source, destination, [&](auto tools, const auto* from, auto* to) {
        rotate(decltype(tools)::type::RotatePlain, from, to);
    });
    ExpectLikeReference(random, source, destination, [&](auto tools, const auto* from, auto* to) {
        rotate(decltype(tools)::type::RotateBiLin, from, to);
    });
}

TEST(Rotation, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 500 && !HasFailure(); ++seed) {
        Random random(seed);
        // Origins below -65536 lie on the negative side of the shifted plane too.
        const long origin = random.OneIn(4) ? -200000 : random.OneIn(3) ? -65536 : 0;
        const long left = origin + random.In(-90, 90), top = origin + random.In(-90, 90);
        Turn turn;
        turn.from = {left, top, left + random.Size() - 1, top + random.Size() - 1};
        turn.to = turn.from;
        if (!random.OneIn(3)) {
            const long to_left = left + random.In(-40, 40), to_top = top + random.In(-40, 40);
            turn.to = {to_left, to_top, to_left + random.Size() - 1, to_top + random.Size() - 1};
        }
        turn.centre = {static_cast<double>(left) + random.Real(-10, 60),
                       static_cast<double>(top) + random.Real(-10, 60)};
        turn.angle = random.OneIn(2) ? kPi / 4 * static_cast<double>(random.In(-9, 9)) : random.Real(-9, 9);
        if (random.OneIn(3))
            turn.centre = {std::floor(turn.centre.x), std::floor(turn.centre.y)};
        ExpectRotated(random, turn);
    }
}

// Images large enough to be read in tiles.
TEST(Rotation, EqualsItsDefinitionOnLargeImages) {
    for (std::uint32_t seed = 0; seed < 6 && !HasFailure(); ++seed) {
        Random random(seed);
        ExpectRotated(random, {{0, 0, 610, 420}, {-80, -90, 600, 500}, {300, 200}, kPi / 6 * seed});
    }
}

// Sources whose positions do not fit 32 bits.
TEST(Rotation, EqualsItsDefinitionOnWideImages) {
    for (std::uint32_t seed = 0; seed < 3 && !HasFailure(); ++seed) {
        Random random(seed);
        const long last = (1 << 18) + random.In(-1, 9), left = random.OneIn(2) ? last - 70 : -30;
        const KSPoint<double> centre(static_cast<double>(left + 40), 10);
        ExpectRotated(random, {{0, 0, last, 9}, {left, -20, left + 130, 50}, centre, random.Real(-4, 4)});
    }
}

TEST(Rotation, WorkedValues) {
    const struct {
        const char* name;
        int last;
        KSPoint<double> centre;
        double angle;
        std::vector<std::uint32_t> source, want;
    } rows[] = {
        {"NoTurn", 1, {7.25, -3}, 0, {1, 2, 3, 4}, {1, 2, 3, 4}},
        {"HalfTurn", 1, {0.5, 0.5}, kPi, {1, 2, 3, 4}, {4, 3, 2, 1}},
        {"QuarterTurn", 2, {1, 1}, kPi / 2, {1, 2, 3, 4, 5, 6, 7, 8, 9}, {3, 6, 9, 2, 5, 8, 1, 4, 7}},
        {"Outside", 1, {50, 50}, kPi, {1, 2, 3, 4}, {99, 99, 99, 99}},
    };
    for (const auto& row : rows) {
        const KSRect<long> rect(0, 0, row.last, row.last);
        const auto length = static_cast<std::uint32_t>(row.last + 1);
        std::vector<std::uint32_t> got(row.want.size(), 99);
        KSBitmapTools::RotatePlain(rect, rect, row.centre, row.angle, row.source.data(), got.data(), length,
                                   length);
        EXPECT_EQ(got, row.want) << row.name;
    }
}

// The first destination pixel far from the centre, where the last bit of a sine moves it to the next column.
// In glibc, sin and cos of double get the first three wrong with fused multiply-adds, the others without.
TEST(Rotation, HasTheExactSineOnEveryProcessor) {
    const struct {
        double angle;
        KSPoint<double> centre;
        long x, y;
    } rows[] = {
        {-0x1.4f0b8d1a02544p+2, {-1300478394, -176855358}, -804503229, 1038270358},
        {-0x1.c320630b4e03p+0, {792042906, 787478756}, 169632909, 1714873252},
        {-0x1.3833c3ef298e4p+2, {795323313, -645381644}, 27550718, -1323306331},
        {0x1.6454f8554e5aep+2, {1116503900, 894573571}, -313030277, 951800070},
        {0x1.7c707ff4aa318p+2, {-337532945, -738738851}, 226347640, -154185805},
        {-0x1.3075e8db0447p+0, {1157849349, -1029576089}, 1682328047, 428355368},
    };
    for (const auto& row : rows) {
        const std::uint32_t columns[] = {1, 2, 3};
        std::uint32_t pixel = 0;
        KSBitmapTools::RotatePlain({row.x - 1, row.y, row.x + 1, row.y}, {0, 0, 0, 0}, row.centre, row.angle,
                                   columns, &pixel, 3, 1);
        EXPECT_EQ(pixel, 2u) << "angle " << row.angle;
    }
}

TEST(Rotation, ArgumentsOutsideThePlaneWriteNothing) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr long least = std::numeric_limits<long>::min(), most = std::numeric_limits<long>::max();
    constexpr long kBelow = -(1L << 31) - 1, kAbove = 1L << 31;
    const KSRect<long> rect(0, 0, 0, 0);
    const Turn turns[] = {
        {rect, rect, {nan, 0}, 1},
        {rect, rect, {0, infinity}, 1},
        {rect, rect, {1e300, -1e300}, 1},
        {rect, rect, {0, 0}, nan},
        {rect, rect, {0, 0}, -infinity},
        {{0, 0, -1, 0}, rect, {0, 0}, 0},
        {rect, {0, 1, 0, 0}, {0, 0}, 0},
        {{least, least, most, most}, rect, {0, 0}, 0},
        {{most, most, least, least}, rect, {0, 0}, 0},
        {rect, {most, most, most, most}, {0, 0}, 0},
        {rect, {0, kBelow, 0, 0}, {0, 0}, 0},
        {rect, {0, 0, 0, kAbove}, {0, 0}, 0},
        {{kBelow, 0, 0, 0}, rect, {0, 0}, 0},
        {{0, 0, kAbove, 0}, rect, {0, 0}, 0},
        {{least, least, least, least}, {least, least, least, least}, {0, 0}, 0},
    };
    for (const auto rotate : {KSBitmapTools::RotatePlain, KSBitmapTools::RotateBiLin})
        for (const Turn& turn : turns) {
            const std::uint32_t source = 1;
            std::uint32_t pixel = 7;
            rotate(turn.from, turn.to, turn.centre, turn.angle, &source, &pixel, 1, 1);
            EXPECT_EQ(pixel, 7u) << "turn " << &turn - turns;
        }
}

// The ends of the 32-bit range, row lengths of 2^32 - 1 on a single row, and a source whose rows are one.
TEST(Rotation, FarAndHugeRectangles) {
    constexpr long least = std::numeric_limits<std::int32_t>::min();
    constexpr long most = std::numeric_limits<std::int32_t>::max();
    constexpr std::uint32_t longest = std::numeric_limits<std::uint32_t>::max();
    const Turn turns[] = {
        {{least, least, least + 2, least}, {least, least, least + 2, least}, {least, least}, 0},
        {{most - 2, most, most, most}, {most - 2, most, most, most}, {0, 0}, 0.5},
        {{least, least, least + 2, least}, {most - 2, most, most, most}, {0, 0}, kPi},
        {{0, least, 2, most}, {0, 0, 2, 0}, {1, 1}, 0.25},
        {{0, 0, 2, 0}, {-1, 0, 1, 0}, {1, 1}, 1e300},
    };
    for (std::uint32_t seed = 0; seed < std::size(turns); ++seed) {
        const Turn& turn = turns[seed];
        Random random(seed);
        TestImage source(3, 1, 3, Against::kBack), destination(3, 1, 3, Against::kBack);
        random.Paint(source.array.items());
        const std::uint32_t row_length = turn.from.top == turn.from.bottom ? longest : 0;
        ExpectLikeReference(random, source, destination, [&](auto tools, const auto* from, auto* to) {
            decltype(tools)::type::RotatePlain(turn.from, turn.to, turn.centre, turn.angle, from, to,
                                               row_length, longest);
        });
        ExpectLikeReference(random, source, destination, [&](auto tools, const auto* from, auto* to) {
            decltype(tools)::type::RotateBiLin(turn.from, turn.to, turn.centre, turn.angle, from, to,
                                               row_length, longest);
        });
    }
}

// Offsets of more than 2^31 words: the rows lie apart in memory that is only set aside.
TEST(Rotation, ReadsSourcesOfManyWords) {
    constexpr std::uint32_t kRow = 1u << 29;
    constexpr std::size_t kWords = std::size_t{kRow} * 5 + 4;
    void* const memory =
        mmap(nullptr, kWords * 4, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED)
        GTEST_SKIP() << "no address space for " << kWords << " words";
    auto* const wide = static_cast<std::uint32_t*>(memory);
    std::uint32_t narrow[6 * 4];
    for (std::uint32_t i = 0; i < 24; ++i)
        wide[std::size_t{i / 4} * kRow + i % 4] = narrow[i] = 0xFF000000 | i * 0x0A0705;
    const KSRect<long> frame(0, 0, 3, 5);
    for (const InstructionSet set : RunnableInstructionSets()) {
        const ScopedInstructionSet forced(set);
        std::uint32_t want[24], got[24];
        const auto expect_same = [&](auto operation) {
            std::fill_n(want, 24, 1);
            std::fill_n(got, 24, 1);
            operation(narrow, want, 4);
            operation(wide, got, kRow);
            EXPECT_EQ(0, std::memcmp(want, got, sizeof want)) << NameOf(set);
            EXPECT_NE(want[21], 1u) << "the last row is drawn";
        };
        for (const auto rotate : {KSBitmapTools::RotatePlain, KSBitmapTools::RotateBiLin})
            expect_same([&](const std::uint32_t* from, std::uint32_t* to, std::uint32_t row) {
                rotate(frame, frame, {1.5, 2.5}, 0.1, from, to, row, 4);
            });
        for (const auto transform : {KSBitmapTools::TransformPlain, KSBitmapTools::TransformBiLin})
            expect_same([&](const std::uint32_t* from, std::uint32_t* to, std::uint32_t row) {
                transform(frame, {-0.5, -0.2}, {4.1, -1}, {4.6, 6.2}, {-0.9, 6.4}, frame, from, to, row, 4);
            });
    }
    munmap(memory, kWords * 4);
}

}  // namespace
