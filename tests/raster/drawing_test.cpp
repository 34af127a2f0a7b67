// SPDX-License-Identifier: MIT
// What the primitives paint, and how often: worked pictures. Random programs are in tests/fuzz.
#include "tests/raster/shapes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct picture {
    const char* name;
    rect frame;
    Shape shape;
    std::vector<point> points;
    const char* want;  // how often each pixel is painted; a slash ends a row
};

const picture kPictures[] = {
    {"ReversedAcross", {0, 0, 2, 1}, kFillRect, {{2, 0}, {1, 1}}, "000/000/"},
    {"RectOutlineCorners", {0, 0, 3, 2}, kStrokeRect, {{0, 0}, {3, 2}}, "2112/1001/2112/"},
    {"RectOutlineOfOnePixel", {0, 0, 1, 0}, kStrokeRect, {{0, 0}, {0, 0}}, "40/"},
    {"LineFlat", {0, 0, 3, 1}, kStrokeLine, {{0, 0}, {3, 1}}, "1100/0011/"},
    {"LineLevelBackwards", {0, 0, 3, 1}, kStrokeLine, {{3, 1}, {1, 1}}, "0000/0111/"},
    {"EllipseOutline", {0, 0, 4, 4}, kStrokeEllipse, {{0, 0}, {4, 4}}, "01210/10001/20002/10001/01210/"},
    {"EllipseOfEvenBox", {0, 0, 3, 3}, kStrokeEllipse, {{0, 0}, {3, 3}}, "0200/2020/0200/0000/"},
    {"EllipseOfNegativeOddSums", {-4, -2, -1, 0}, kStrokeEllipse, {{-3, -2}, {-2, -1}}, "0020/0202/0020/"},
    {"EllipseFilled", {0, 0, 4, 4}, kFillEllipse, {{0, 0}, {4, 4}}, "01210/12421/24842/12421/01210/"},
    {"Triangle", {0, 0, 4, 4}, kFillPolygon, {{0, 0}, {4, 4}, {0, 4}}, "00000/11000/11100/11110/11111/"},
    {"PolygonOfTwoPoints", {0, 0, 2, 2}, kFillPolygon, {{0, 0}, {2, 2}}, "000/010/001/"},
    // The right edge is recorded first. A left one beyond column -32000 counts as none.
    {"Left", {0, 0, 3, 2}, kFillPolygon, {{-32000, 0}, {3, 0}, {3, 2}, {-32000, 2}}, "0000/1111/1111/"},
    {"FarLeft", {0, 0, 3, 2}, kFillPolygon, {{-32001, 0}, {3, 0}, {3, 2}, {-32001, 2}}, "0000/0001/0001/"},
    {"ApexAndBase", {0, 0, 4, 4}, kFillTriangle, {{0, 0}, {4, 4}, {0, 4}}, "00000/11000/11100/11110/11111/"},
    {"MiddleTwice", {0, 0, 4, 4}, kFillTriangle, {{0, 4}, {4, 2}, {0, 0}}, "00000/11100/22222/11100/00000/"},
};

// Returns a digit per pixel of a raster whose shapes count.
std::string CountsIn(const KSRaster& raster) {
    std::string counts;
    ForEachPixel(raster.Frame(), [&](long x, long y) {
        counts += static_cast<char>('0' + (PixelAt(raster, x, y) & 0xFF));
        counts += x == raster.Frame().right ? "/" : "";
    });
    return counts;
}

TEST(Drawing, PaintsThesePictures) {
    for (const picture& p : kPictures) {
        side_by_side drawn(p.frame);
        EXPECT_TRUE(drawn.Alike(p.shape, p.points)) << p.name;
        EXPECT_EQ(CountsIn(drawn.raster), p.want) << p.name;
    }
}

TEST(Drawing, TakesNumbersCornersAndRectangles) {
    const auto drawn = [](auto... box) {
        side_by_side target({0, 0, 9, 9});
        target.raster.FillRect(box...);
        target.raster.StrokeRect(box...);
        target.raster.StrokeLine(box...);
        target.raster.FillEllipse(box...);
        target.raster.StrokeEllipse(box...);
        target.raster.PutPixel(point(1, 0));
        return CountsIn(target.raster);
    };
    EXPECT_EQ(drawn(point(1, 2), point(7, 5)), drawn(1, 2, 7, 5));
    EXPECT_EQ(drawn(rect(1, 2, 7, 5)), drawn(1, 2, 7, 5));
    EXPECT_EQ(drawn(rect(5, 5, 4, 4)).substr(0, 12), "0100000000/0");
}

}  // namespace
