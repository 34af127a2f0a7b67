// SPDX-License-Identifier: MIT
// Rotation equals its definition at every level, within the bounds of its arrays.
#include "tests/bitmaptools/pixel_arrays.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr long kLeast = -(1L << 31), kMost = (1L << 31) - 1;  // of the plane

struct Turn {
    KSRect<long> from, to;
    KSPoint<double> centre;
    double angle;
    long row_length = -1;  // of both images; any if negative
};

void ExpectRotated(Noise& noise, const Turn& turn) {
    TestImage source(noise, turn.from.PixelWidth(), turn.from.PixelHeight(), turn.row_length);
    TestImage destination(noise, turn.to.PixelWidth(), turn.to.PixelHeight());
    ExpectLikeReference(
        noise, source, destination, [&]<class Tools>(bool bilinear, const Word* from, Word* to) {
            (bilinear ? Tools::RotateBiLin : Tools::RotatePlain)(
                turn.from, turn.to, turn.centre, turn.angle, from, to, static_cast<Word>(source.row_length),
                static_cast<Word>(destination.row_length));
        });
}

TEST(Rotation, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 500 && !HasFailure(); seed += kSweepStep) {
        Noise noise(seed);
        // Origins below -65536 lie on the negative side of the shifted plane too.
        const long origin = noise.OneIn(4) ? -200000 : noise.OneIn(3) ? -65536 : 0;
        const long left = origin + noise.In(-90, 90), top = origin + noise.In(-90, 90);
        const auto rect_at = [&](long x, long y) {
            return KSRect<long>(x, y, x + Size(noise) - 1, y + Size(noise) - 1);
        };
        Turn turn = {rect_at(left, top), {}, {}, 0};
        turn.to = noise.OneIn(3) ? turn.from : rect_at(left + noise.In(-40, 40), top + noise.In(-40, 40));
        turn.centre = {static_cast<double>(left) + noise.Real(-10, 60),
                       static_cast<double>(top) + noise.Real(-10, 60)};
        if (noise.OneIn(3))
            turn.centre = {std::floor(turn.centre.x), std::floor(turn.centre.y)};
        turn.angle = noise.OneIn(2) ? kPi / 4 * static_cast<double>(noise.In(-9, 9)) : noise.Real(-9, 9);
        ExpectRotated(noise, turn);
    }
}

// A turn that shows pixel (x, y), or one of its neighbours.
Turn FarPixel(double angle, KSPoint<double> centre, long x, long y) {
    return {{x - 1, y, x + 1, y}, {0, 0, 0, 0}, centre, angle};
}

TEST(Rotation, EqualsItsDefinitionOnLargeAndFarImages) {
    constexpr long kWide = 1 << 18, kLongest = std::numeric_limits<Word>::max();
    const Turn turns[] = {
        // read in tiles
        {{0, 0, 610, 420}, {-80, -90, 600, 500}, {300, 200}, 0},
        {{0, 0, 610, 420}, {-80, -90, 600, 500}, {300, 200}, kPi / 6},
        {{0, 0, 610, 420}, {-80, -90, 600, 500}, {300, 200}, kPi / 2},
        {{0, 0, 610, 420}, {-80, -90, 600, 500}, {300, 200}, kPi * 2 / 3},
        // positions that do and do not fit 32 bits
        {{0, 0, kWide - 1, 9}, {-30, -20, 100, 50}, {10, 10}, 1.3},
        {{0, 0, kWide - 2, 9}, {kWide - 70, -20, kWide + 60, 50}, {kWide - 30, 10}, -3},
        {{0, 0, kWide + 7, 9}, {kWide - 63, -20, kWide + 67, 50}, {kWide - 23, 10}, 2},
        // the ends of the plane
        {{kLeast, kLeast, kLeast + 2, kLeast}, {kLeast, kLeast, kLeast + 2, kLeast}, {kLeast, kLeast}, 0},
        {{kMost - 2, kMost, kMost, kMost}, {kMost - 2, kMost, kMost, kMost}, {0, 0}, 0.5, kLongest},
        {{kLeast, kLeast, kLeast + 2, kLeast}, {kMost - 2, kMost, kMost, kMost}, {0, 0}, kPi, kLongest},
        {{0, 0, 2, 0}, {-1, 0, 1, 0}, {1, 1}, 1e300, kLongest},
        // The first pixel far from the centre, where the last bit of a sine moves it to the next column. In
        // glibc, sin and cos of double get the first three wrong with fused multiply-adds, the others
        // without.
        FarPixel(-0x1.4f0b8d1a02544p+2, {-1300478394, -176855358}, -804503229, 1038270358),
        FarPixel(-0x1.c320630b4e03p+0, {792042906, 787478756}, 169632909, 1714873252),
        FarPixel(-0x1.3833c3ef298e4p+2, {795323313, -645381644}, 27550718, -1323306331),
        FarPixel(0x1.6454f8554e5aep+2, {1116503900, 894573571}, -313030277, 951800070),
        FarPixel(0x1.7c707ff4aa318p+2, {-337532945, -738738851}, 226347640, -154185805),
        FarPixel(-0x1.3075e8db0447p+0, {1157849349, -1029576089}, 1682328047, 428355368),
        // rows that are all the same, and offsets of more than 2^31 words
        {{0, kLeast, 2, kMost}, {0, 0, 2, 0}, {1, 1}, 0.25, 0},
        {{0, 0, 3, 5}, {0, 0, 3, 5}, {1.5, 2.5}, 0.1, 1 << 29},
    };
    for (const Turn& turn : turns)
        for (std::uint32_t seed = 0; seed < 2; ++seed) {
            SCOPED_TRACE(&turn - turns);
            Noise noise(seed);
            ExpectRotated(noise, turn);
        }
}

}  // namespace
