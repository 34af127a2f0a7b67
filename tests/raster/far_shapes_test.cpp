// SPDX-License-Identifier: MIT
// Shapes that reach far beyond the frame. Random programs of all shapes are in tests/fuzz.
#include "tests/raster/shapes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <string>

namespace {

using reference::wide;

constexpr long kLeast = std::numeric_limits<std::int32_t>::min();
constexpr long kMost = std::numeric_limits<std::int32_t>::max();
constexpr long kStart = std::numeric_limits<long>::min(), kEnd = std::numeric_limits<long>::max();

rect FrameAround(long x, long y, long reach) {
    return {x - reach, y - reach, x + reach, y + reach};
}

// Returns a frame around the point of an ellipse's outline at an angle.
rect FrameOnEllipse(long cx, long cy, long a, long b, double angle, long reach) {
    return FrameAround(cx + std::lround(static_cast<double>(a) * std::cos(angle)),
                       cy + std::lround(static_cast<double>(b) * std::sin(angle)), reach);
}

// Compares an ellipse in frames at some places of its outline, at its axes and at its centre.
void CompareInPlaces(point center, long a, long b, Noise& noise) {
    const double diagonal = std::atan2(static_cast<double>(b), static_cast<double>(a));
    std::vector<rect> frames = {FrameAround(center.x, center.y, noise.In(0, 12))};
    for (const double angle : {diagonal, noise.Real(0, 6.3), noise.Real(0, 6.3)})
        frames.push_back(FrameOnEllipse(center.x, center.y, a, b, angle, 12));
    for (const rect& frame : frames)
        for (const Shape shape : {kStrokeEllipse, kFillEllipse})
            EXPECT_TRUE(side_by_side(frame).Alike(
                shape, {{center.x - a, center.y - b}, {center.x + a, center.y + b}}))
                << "radii " << a << ", " << b << ", frame " << frame.left << ", " << frame.top;
}

// At random, and with the radii up to which the walk is done in 64 bits, and the next ones.
TEST(FarShapes, EllipsesOfAllProportions) {
    constexpr long kLast = 1 << 15;
    Noise noise(1);
    const auto radius = [&] { return noise.In(0, 1L << noise.In(0, 18)); };
    for (int i = 0; i < 120; i++)
        CompareInPlaces({noise.In(-5000, 5000), noise.In(-5000, 5000)}, radius(), radius(), noise);
    for (const long a : {kLast, kLast + 1, 2 * kLast})
        for (const long b : {kLast, kLast + 1, 2 * kLast})
            CompareInPlaces({3, -5}, a, b, noise);
}

// The sides of an ellipse of radius 1 end in the row r where it is half a pixel from its axis, which closes
// it. These radii solve 4 * r * r - 3 * b * b = 1: the ellipse ends 1 / (8 * r) of a pixel before the row,
// which double cannot tell from r.
TEST(FarShapes, EllipsesOfRadius1AsHighAsTheRange) {
    const struct {
        long b, r;
    } kHeights[] = {{15, 13}, {7865521, 6811741}, {109552575, 94875313}, {1525870529, 1321442641}};
    for (const auto& [b, r] : kHeights) {
        const auto want = [row = r](reference::canvas& canvas) {
            canvas.FillRect(-1, 0, -1, row - 1);
            canvas.FillRect(1, 0, 1, row - 1);
            canvas.PutPixel(0, row);
            canvas.PutPixel(0, row);
        };
        side_by_side drawn(FrameAround(0, r, 3));
        EXPECT_TRUE(drawn.Alike(kStrokeEllipse, {{-1, -b}, {1, b}}, want)) << b;
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
    const long a = kMost, b = kMost - 5;
    for (const double angle : {0.0001, 0.3, 0.7, 0.9, 1.2, 1.57, 2.5, 4.0, 5.9}) {
        const rect frame = FrameOnEllipse(0, 0, a - 9, b - 9, angle, 8);
        const auto want = [&](reference::canvas& canvas) {
            ForEachPixel(frame, [&](long x, long y) {
                if (OnOutline(x, y, a, b))
                    canvas.PutPixel(x, y);
            });
        };
        EXPECT_TRUE(side_by_side(frame).Alike(kStrokeEllipse, {{-a, -b}, {a, b}}, want)) << angle;
    }
}

TEST(FarShapes, TakeNoTimeForWhatIsOutside) {
    KSRaster raster({-8, -8, 8, 8});
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 40; i++)
        for (const point& first : {point(kLeast, kLeast), {kLeast, -1}, {-1, kLeast}})
            for (int shape = 0; shape < kShapeCount; shape++) {
                raster.SetDrawingMode(i % 2 ? kMergeNormal : kMergeDissolve);
                Draw(raster, static_cast<Shape>(shape), {first, {-1 - first.x, -1 - first.y}, {kMost, -1}});
            }
    // A single one of the larger shapes takes the plain algorithms many times as long.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

// Each shape first, then a pattern over all.
TEST(FarShapes, FramesWhereTheRangeEnds) {
    const unsigned char pattern[8] = {0x01, 0x12, 0x24, 0x48, 0x81, 0x5A, 0xF0, 0x3C};
    for (const rect frame : {rect(kEnd - 9, kEnd - 2, kEnd, kEnd), rect(kStart, kEnd - 10, kStart + 3, kEnd),
                             rect(kEnd - 3, kStart, kEnd, kStart + 10)})
        for (const bool erase : {false, true}) {
            KSRaster raster(frame);
            for (int shape = 0; shape < kShapeCount; shape++)
                Draw(raster, static_cast<Shape>(shape), {{kEnd, kStart}, {kEnd - 1, kEnd}, {0, kMost}});
            raster.FillAlpha(255);
            raster.SetDrawingMode(erase ? kMergeErase : kMergeCopy);
            raster.SetPattern(pattern);
            raster.SetHighColor(0, 0, 0, erase ? 255 : 0);
            raster.SetLowColor(0, 0, 0, erase ? 0 : 255);
            raster.FillRect(kStart, kStart, kEnd, kEnd);
            // Counted from 0, for the frame may end where long does.
            ForEachPixel(raster.Bounds(), [&](long i, long j) {
                const long x = frame.left + i, y = frame.top + j;
                EXPECT_EQ(PixelAt(raster, x, y) >> 24, pattern[y & 7] >> (x & 7) & 1 ? 0 : 255)
                    << "erase " << erase << ", " << x << ", " << y;
            });
        }
}

TEST(FarShapes, EdgesAreRecordedForTheRowsOfTheFrame) {
    const KSRaster raster({0, 10, 5, 12});
    KSList<ks_polyline_entry> crossings;
    raster.polyline(0, kLeast, 0, kMost, crossings);
    raster.polyline(8, 14, 4, 10, crossings);
    raster.polyline(1, 11, 7, 11, crossings);
    raster.polyline(0, kMost + 1, 0, 0, crossings);
    std::string recorded;
    for (const ks_polyline_entry& row : crossings)
        recorded += std::to_string(row.scanline) + ": " + std::to_string(row.first) + ", " +
                    std::to_string(row.second) + "\n";
    EXPECT_EQ(recorded, "10: 0, -32001\n11: 0, 5\n12: 0, 6\n");
}

}  // namespace
