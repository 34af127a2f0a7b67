// SPDX-License-Identifier: MIT
// Shapes that reach far beyond the frame: the pixels of the plain algorithms, and no time for what is
// outside.
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"
#include "tests/reference/drawing.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

using point = KSPoint<long>;
using rect = KSRect<long>;
using reference::wide;

constexpr long kLeast = std::numeric_limits<std::int32_t>::min();
constexpr long kMost = std::numeric_limits<std::int32_t>::max();

// Draws on a raster and on a canvas, in a mode that counts; returns the first pixel that differs.
template <class Draw, class Want> std::string Compare(rect frame, Draw draw, Want want) {
    KSRaster raster(frame);
    raster.FillAlpha(255);
    raster.SetDrawingMode(kMergeAdd);
    raster.SetHighColor(0, 0, 1, 255);
    reference::canvas canvas(frame);
    canvas.mode = kMergeAdd;
    draw(raster);
    want(canvas);
    std::string difference;
    ForEachPixel(frame, [&](long x, long y) {
        const int count = static_cast<int>(PixelAt(raster, x, y) & 0xFF),
                  expected = canvas.counts[canvas.Index(x, y)];
        if (difference.empty() && count != expected)
            difference = std::to_string(x) + ", " + std::to_string(y) + ": " + std::to_string(count) +
                         " times instead of " + std::to_string(expected);
    });
    return difference;
}

long Pick(std::mt19937& random, long low, long high) {
    return std::uniform_int_distribution<long>(low, high)(random);
}

rect FrameAround(long x, long y, long reach) {
    return {x - reach, y - reach, x + reach, y + reach};
}

TEST(FarShapes, LinesOfMillionsOfPixels) {
    for (unsigned seed = 1; seed <= 60; seed++) {
        std::mt19937 random(seed);
        const long far = seed % 3 == 0 ? 300 : 1000000;
        const point a(Pick(random, -far, far), Pick(random, -far, far)),
            b(Pick(random, -far, far), Pick(random, -far, far));
        const double t = static_cast<double>(Pick(random, 0, 1000)) / 1000;
        const rect frame =
            FrameAround(std::lround(static_cast<double>(a.x) + t * static_cast<double>(b.x - a.x)),
                        std::lround(static_cast<double>(a.y) + t * static_cast<double>(b.y - a.y)), 20);
        EXPECT_EQ(Compare(
                      frame, [&](KSRaster& r) { r.StrokeLine(a, b); },
                      [&](reference::canvas& c) { c.StrokeLine(a.x, a.y, b.x, b.y); }),
                  "")
            << "seed " << seed;
    }
}

// Before step i of a line, its minor coordinate has moved round(i * minor / major) times, halves up.
void ExactLine(reference::canvas& canvas, rect frame, point a, point b) {
    ForEachPixel(frame, [&](long x, long y) {
        wide dx = wide{b.x} - a.x, dy = wide{b.y} - a.y, along = wide{x} - a.x, aside = wide{y} - a.y;
        if ((dy < 0 ? -dy : dy) > (dx < 0 ? -dx : dx)) {
            std::swap(dx, dy);
            std::swap(along, aside);
        }
        if (dx < 0)
            dx = -dx, along = -along;
        if (dy < 0)
            dy = -dy, aside = -aside;
        if (along >= 0 && along <= dx && aside == (2 * dy * along + dx) / (2 * dx))
            canvas.PutPixel(x, y);
    });
}

TEST(FarShapes, LinesFromEndToEndOfTheRange) {
    const std::pair<point, point> kLines[] = {
        {{kLeast, kLeast}, {kMost, kMost}},
        {{kLeast, kMost}, {kMost, kLeast}},
        {{kMost, kMost}, {kLeast, kLeast}},
        {{kLeast, -3}, {kMost, 5}},
        {{7, kMost}, {-9, kLeast}},
        {{kLeast, -1000000}, {kMost, 1000001}},
        {{kLeast, kLeast + 1}, {kMost, kMost}},
        {{0, 0}, {kMost, 123456789}},
        {{-20, 4}, {kMost, kLeast}},
    };
    for (const auto& [a, b] : kLines)
        for (const rect frame : {rect(-30, -30, 30, 30), rect(kMost - 20, kMost - 20, kMost, kMost),
                                 rect(kLeast, kLeast, kLeast + 20, kLeast + 20), rect(-5, -5, -5, 5)})
            EXPECT_EQ(Compare(
                          frame, [&, from = a, to = b](KSRaster& r) { r.StrokeLine(from, to); },
                          [&, from = a, to = b](reference::canvas& c) { ExactLine(c, frame, from, to); }),
                      "")
                << a.x << ", " << a.y << " to " << b.x << ", " << b.y << ", frame " << frame.left;
}

// Compares an ellipse around (cx, cy) in frames at some places of its outline, its axes and its centre.
void CompareEllipse(long cx, long cy, long a, long b, std::mt19937& random) {
    const long x2 = cx + a, y2 = cy + b, x1 = cx - a, y1 = cy - b;
    for (int i = 0; i < 4; i++) {
        const double angle = i == 0 ? std::atan2(static_cast<double>(b), static_cast<double>(a))
                                    : static_cast<double>(Pick(random, 0, 6283)) / 1000;
        rect frame = FrameAround(cx + std::lround(static_cast<double>(a) * std::cos(angle)),
                                 cy + std::lround(static_cast<double>(b) * std::sin(angle)), 12);
        if (i == 3)
            frame = FrameAround(cx, cy, Pick(random, 0, 12));
        EXPECT_EQ(Compare(
                      frame, [&](KSRaster& r) { r.StrokeEllipse(x1, y1, x2, y2); },
                      [&](reference::canvas& c) { c.StrokeEllipse(x1, y1, x2, y2); }),
                  "")
            << "outline, radii " << a << ", " << b << ", frame " << i;
        EXPECT_EQ(Compare(
                      frame, [&](KSRaster& r) { r.FillEllipse(x1, y1, x2, y2); },
                      [&](reference::canvas& c) { c.FillEllipse(x1, y1, x2, y2); }),
                  "")
            << "filled, radii " << a << ", " << b << ", frame " << i;
    }
}

TEST(FarShapes, EllipsesWithAllSmallRadii) {
    for (long a = 0; a <= 24; a++)
        for (long b = 0; b <= 24; b++)
            for (const rect frame : {rect(-26, -26, 26, 26), rect(3, 2, 9, 30), rect(-30, -40, 0, -6)}) {
                EXPECT_EQ(Compare(
                              frame, [&](KSRaster& r) { r.FillEllipse(-a, -b, a, b); },
                              [&](reference::canvas& c) { c.FillEllipse(-a, -b, a, b); }),
                          "")
                    << a << ", " << b;
                EXPECT_EQ(Compare(
                              frame, [&](KSRaster& r) { r.StrokeEllipse(-a, -b, a, b); },
                              [&](reference::canvas& c) { c.StrokeEllipse(-a, -b, a, b); }),
                          "")
                    << a << ", " << b;
            }
}

TEST(FarShapes, EllipsesOfAllProportions) {
    for (unsigned seed = 1; seed <= 80; seed++) {
        std::mt19937 random(seed);
        const auto radius = [&] { return Pick(random, 0, 1L << Pick(random, 0, 18)); };
        CompareEllipse(Pick(random, -5000, 5000), Pick(random, -5000, 5000), radius(), radius(), random);
    }
}

// Radii up to which the walk is done in 64 bits, and the next ones.
TEST(FarShapes, EllipsesAtTheEndOf64Bits) {
    constexpr long kEnd = 1 << 15;
    std::mt19937 random(1);
    for (const long a : {kEnd, kEnd + 1, 2 * kEnd})
        for (const long b : {kEnd, kEnd + 1, 2 * kEnd})
            CompareEllipse(3, -5, a, b, random);
}

// The sides of an ellipse of radius 1 end in the row r where it is half a pixel from its axis, which closes
// it. For these radii, solutions of 4 * r * r - 3 * b * b = 1, that is 1 / (8 * r) of a pixel before the row,
// which double cannot tell from r.
TEST(FarShapes, EllipsesOfRadius1AsHighAsTheRange) {
    const struct {
        long b, r;
    } kHeights[] = {{15, 13}, {7865521, 6811741}, {109552575, 94875313}, {1525870529, 1321442641}};
    for (const auto& height : kHeights) {
        EXPECT_EQ(Compare(
                      FrameAround(0, height.r, 3),
                      [&height](KSRaster& raster) { raster.StrokeEllipse(-1, -height.b, 1, height.b); },
                      [&height](reference::canvas& c) {
                          for (long y = height.r - 3; y < height.r; y++) {
                              c.PutPixel(-1, y);
                              c.PutPixel(1, y);
                          }
                          c.PutPixel(0, height.r);
                          c.PutPixel(0, height.r);
                      }),
                  "")
            << height.b;
    }
}

// In each row of the first part (in each column of the second), the outline has the one pixel between whose
// sides the ellipse passes.
bool OnOutline(wide x, wide y, wide a, wide b) {
    const auto outside = [](wide twice_x, wide y_, wide a_, wide b_) {
        return b_ * b_ * twice_x * twice_x >= 4 * a_ * a_ * (b_ - y_) * (b_ + y_);
    };
    x = x < 0 ? -x : x;
    y = y < 0 ? -y : y;
    return b * b * x >= a * a * y ? !outside(2 * x - 1, y, a, b) && outside(2 * x + 1, y, a, b)
                                  : !outside(2 * y - 1, x, b, a) && outside(2 * y + 1, x, b, a);
}

TEST(FarShapes, EllipsesAsLargeAsTheRange) {
    const long a = kMost, b = kMost - 5;  // the box (-a, -b) to (a, b)
    for (const double angle : {0.0001, 0.3, 0.7, 0.9, 1.2, 1.57, 2.5, 4.0, 5.9}) {
        const rect frame = FrameAround(std::lround(static_cast<double>(a - 9) * std::cos(angle)),
                                       std::lround(static_cast<double>(b - 9) * std::sin(angle)), 8);
        EXPECT_EQ(Compare(
                      frame, [&](KSRaster& r) { r.StrokeEllipse(-a, -b, a, b); },
                      [&](reference::canvas& c) {
                          ForEachPixel(frame, [&](long x, long y) {
                              if (OnOutline(x, y, a, b))
                                  c.PutPixel(x, y);
                          });
                      }),
                  "")
            << angle;
    }
}

TEST(FarShapes, TrianglesAndPolygonsOfAllSizes) {
    for (unsigned seed = 1; seed <= 600; seed++) {
        std::mt19937 random(seed);
        const long far = seed % 3 == 0 ? kMost : 1L << Pick(random, 3, 31);
        const auto corner = [&] { return point(Pick(random, -far, far - 1), Pick(random, -far, far - 1)); };
        const point p[] = {corner(), corner(), corner(), corner()};
        const rect frame = seed % 2 ? FrameAround(Pick(random, -99, 99), Pick(random, -99, 99), 15)
                                    : FrameAround(p[0].x, p[0].y, 15);
        EXPECT_EQ(Compare(
                      frame, [&](KSRaster& r) { r.FillTriangle(p[0], p[1], p[2]); },
                      [&](reference::canvas& c) { c.FillTriangle(p[0], p[1], p[2]); }),
                  "")
            << "triangle, seed " << seed;
        EXPECT_EQ(Compare(
                      frame, [&](KSRaster& r) { r.FillPolygon(p, 4); },
                      [&](reference::canvas& c) {
                          c.FillPolygon({p[0], p[1], p[2], p[3]});
                      }),
                  "")
            << "polygon, seed " << seed;
    }
}

TEST(FarShapes, TakeNoTimeForWhatIsOutside) {
    KSRaster raster({-8, -8, 8, 8});
    const auto start = std::chrono::steady_clock::now();
    const point corners[] = {{kLeast, kLeast}, {kMost, -1}, {kMost, kMost}, {kLeast, 1}};
    for (const int mode : {int{kMergeNormal}, int{kMergeDissolve}})
        for (int i = 0; i < 20; i++) {
            raster.SetDrawingMode(static_cast<ks_composition_mode>(mode));
            raster.FillRect(kLeast, kLeast, kMost, kMost);
            raster.StrokeRect(kLeast, kLeast, kMost, kMost);
            raster.StrokeLine(kLeast, kLeast, kMost, kMost - 1);
            raster.StrokeEllipse(kLeast, kLeast, kMost, kMost);
            raster.FillEllipse(kLeast, kLeast, kMost, kMost);
            raster.StrokeEllipse(kLeast, 0, kMost, 1);
            raster.FillEllipse(-1, kLeast, 1, kMost);
            raster.FillPolygon(corners, 4);
            raster.FillTriangle(corners[0], corners[1], corners[2]);
        }
    // A single one of the larger shapes takes the plain algorithms many times as long.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(FarShapes, CoordinatesBeyondTheRange) {
    const long kEnd = std::numeric_limits<long>::max(), kStart = std::numeric_limits<long>::min();
    const point beyond(kMost + 1, 0);
    const rect frame(-3, -3, 3, 3);
    const auto paints = [&](auto draw) { return Compare(frame, draw, [](reference::canvas&) {}) != ""; };
    EXPECT_TRUE(paints([&](KSRaster& r) { r.FillRect(kStart, kStart, kEnd, kEnd); }));
    EXPECT_TRUE(paints([&](KSRaster& r) { r.StrokeRect(kStart, 0, kEnd, kEnd); }));
    EXPECT_TRUE(paints([&](KSRaster& r) { r.StrokeLine(kEnd, 1, kStart, 1); }));
    EXPECT_FALSE(paints([&](KSRaster& r) { r.PutPixel(kEnd, kStart); }));
    EXPECT_FALSE(paints([&](KSRaster& r) { r.StrokeLine(kStart, kStart, kEnd, kEnd); }));
    EXPECT_FALSE(paints([&](KSRaster& r) { r.StrokeLine(point(0, 1), beyond); }));
    EXPECT_FALSE(paints([&](KSRaster& r) { r.FillEllipse(kStart, -1, kEnd, 1); }));
    EXPECT_FALSE(paints([&](KSRaster& r) { r.StrokeEllipse(-1, kStart, 1, kEnd); }));
    EXPECT_FALSE(paints([&](KSRaster& r) { r.FillTriangle({-1, -1}, beyond, {1, 1}); }));
    EXPECT_FALSE(paints([&](KSRaster& r) {
        const point corners[] = {{-2, -2}, {2, -2}, beyond};
        r.FillPolygon(corners, 3);
    }));

    KSRaster far({kEnd - 2, kStart, kEnd, kStart + 2});
    far.FillRect(kStart, kStart, kEnd, kEnd);
    far.StrokeLine(kEnd, kStart, kEnd - 1, kEnd);
    far.FillEllipse(kLeast, kLeast, kMost, kMost);
    far.FillTriangle({0, 0}, {9, 0}, {0, 9});
    EXPECT_EQ(PixelAt(far, kEnd, kStart + 2), 0xFFFFFFFF);
}

TEST(FarShapes, PatternsWhereTheRangeEnds) {
    const unsigned char pattern[8] = {0x01, 0x12, 0x24, 0x48, 0x81, 0x5A, 0xF0, 0x3C};
    const long kEnd = std::numeric_limits<long>::max(), kStart = std::numeric_limits<long>::min();
    for (const rect frame : {rect(kEnd - 9, kEnd - 2, kEnd, kEnd), rect(kStart, kEnd - 10, kStart + 3, kEnd),
                             rect(kEnd - 3, kStart, kEnd, kStart + 10)})
        for (const ks_composition_mode mode : {kMergeCopy, kMergeErase}) {
            KSRaster raster(frame);
            raster.FillAlpha(255);
            raster.SetDrawingMode(mode);
            raster.SetPattern(pattern);
            raster.SetHighColor(0, 0, 0, mode == kMergeErase ? 255 : 0);
            raster.SetLowColor(0, 0, 0, mode == kMergeErase ? 0 : 255);
            raster.FillRect(kStart, kStart, kEnd, kEnd);
            for (long j = 0; j < raster.Height(); j++)
                for (long i = 0; i < raster.Width(); i++) {
                    const long x = frame.left + i, y = frame.top + j;
                    EXPECT_EQ(PixelAt(raster, x, y), pattern[y & 7] >> (x & 7) & 1 ? 0 : 0xFF000000)
                        << "mode " << mode << ", " << x << ", " << y;
                }
        }
}

TEST(FarShapes, EdgesAreRecordedForTheRowsOfTheFrame) {
    const KSRaster raster({0, 10, 5, 12});
    KSList<ks_polyline_entry> crossings;
    raster.polyline(0, kLeast, 0, kMost, crossings);
    raster.polyline(8, 14, 4, 10, crossings);
    raster.polyline(1, 11, 7, 11, crossings);
    raster.polyline(0, kMost + 1, 0, 0, crossings);
    const ks_polyline_entry kWant[] = {{10, 0, -32001}, {11, 0, 5}, {12, 0, 6}};
    ASSERT_EQ(crossings.CountItems(), 3);
    for (long i = 0; i < 3; i++) {
        EXPECT_EQ(crossings.ItemAt(i)->scanline, kWant[i].scanline);
        EXPECT_EQ(crossings.ItemAt(i)->first, kWant[i].first);
        EXPECT_EQ(crossings.ItemAt(i)->second, kWant[i].second);
    }
}

}  // namespace
