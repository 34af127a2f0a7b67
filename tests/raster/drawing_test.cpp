// SPDX-License-Identifier: MIT
// What the primitives paint, and how often: worked pictures, and random programs beside the plain algorithms.
#include "kits/BBitmap.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"
#include "tests/reference/drawing.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using point = KSPoint<long>;
using rect = KSRect<long>;

// Returns how often `draw` paints each pixel of the frame: a digit per pixel, rows separated by slashes.
std::string Painted(rect frame, const std::function<void(KSRaster&)>& draw) {
    KSRaster raster(frame);
    raster.FillAlpha(255);
    raster.SetDrawingMode(kMergeAdd);
    raster.SetHighColor(0, 0, 1, 255);
    draw(raster);
    std::string text;
    for (long y = frame.top; y <= frame.bottom; y++) {
        for (long x = frame.left; x <= frame.right; x++)
            text += static_cast<char>('0' + (PixelAt(raster, x, y) & 0xFF));
        text += y < frame.bottom ? "/" : "";
    }
    return text;
}

struct picture {
    const char* name;
    rect frame;
    void (*draw)(KSRaster&);
    const char* want;
};

const picture kPictures[] = {
    {"ReversedRect",
     {0, 0, 2, 1},
     [](KSRaster& r) {
         r.FillRect(2, 0, 1, 1);
         r.FillRect(0, 1, 2, 0);
     },
     "000/000"},
    {"RectBeyondTheFrame", {0, 0, 2, 1}, [](KSRaster& r) { r.FillRect(-10, -10, 1000, 1000); }, "111/111"},
    {"RectOfPoints", {0, 0, 2, 1}, [](KSRaster& r) { r.FillRect(point(1, 0), point(2, 0)); }, "011/000"},
    {"FrameAwayFromOrigin",
     {100, 200, 102, 201},
     [](KSRaster& r) {
         r.PutPixel(100, 200);
         r.PutPixel(0, 0);
     },
     "100/000"},
    {"RectOutlineCorners", {0, 0, 3, 2}, [](KSRaster& r) { r.StrokeRect(0, 0, 3, 2); }, "2112/1001/2112"},
    {"RectOutlineOfOnePixel", {0, 0, 1, 0}, [](KSRaster& r) { r.StrokeRect(rect(0, 0, 0, 0)); }, "40"},
    {"LineFlat", {0, 0, 3, 1}, [](KSRaster& r) { r.StrokeLine(0, 0, 3, 1); }, "1100/0011"},
    {"LineSteep", {0, 0, 1, 3}, [](KSRaster& r) { r.StrokeLine(0, 0, 1, 3); }, "10/10/01/01"},
    {"LineBackwards", {0, 0, 3, 1}, [](KSRaster& r) { r.StrokeLine(3, 1, 0, 0); }, "1100/0011"},
    {"LineLevelBackwards",
     {0, 0, 3, 1},
     [](KSRaster& r) { r.StrokeLine(point(3, 1), point(1, 1)); },
     "0000/0111"},
    {"EllipseOutline",
     {0, 0, 4, 4},
     [](KSRaster& r) { r.StrokeEllipse(0, 0, 4, 4); },
     "01210/10001/20002/10001/01210"},
    {"EllipseOfEvenBox",
     {0, 0, 3, 3},
     [](KSRaster& r) { r.StrokeEllipse(rect(0, 0, 3, 3)); },
     "0200/2020/0200/0000"},
    {"EllipseOfTwoByTwo",
     {0, 0, 1, 1},
     [](KSRaster& r) { r.StrokeEllipse(point(0, 0), point(1, 1)); },
     "40/00"},
    {"EllipseFilled",
     {0, 0, 4, 4},
     [](KSRaster& r) { r.FillEllipse(0, 0, 4, 4); },
     "01210/12421/24842/12421/01210"},
    {"EllipseOfNegativeOddSums",
     {-4, -2, -1, 0},
     [](KSRaster& r) { r.StrokeEllipse(-3, -2, -2, -1); },
     "0020/0202/0020"},
    {"EllipseReversed",
     {0, 0, 4, 4},
     [](KSRaster& r) {
         r.FillEllipse(4, 0, 0, 4);
         r.StrokeEllipse(0, 3, 4, 2);
     },
     "00000/00000/00000/00000/00000"},
    {"PolygonSquare",
     {0, 0, 4, 4},
     [](KSRaster& r) {
         const point p[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
         r.FillPolygon(p, 4);
     },
     "00000/11111/11111/11111/11111"},
    {"PolygonTriangle",
     {0, 0, 4, 4},
     [](KSRaster& r) {
         const point p[] = {{0, 0}, {4, 4}, {0, 4}};
         r.FillPolygon(p, 3);
     },
     "00000/11000/11100/11110/11111"},
    {"PolygonOfTwoPoints",
     {0, 0, 2, 2},
     [](KSRaster& r) {
         const point p[] = {{0, 0}, {2, 2}};
         r.FillPolygon(p, 2);
     },
     "000/010/001"},
    {"PolygonOnOneRow",
     {0, 0, 2, 0},
     [](KSRaster& r) {
         const point p[] = {{0, 0}, {2, 0}, {1, 0}};
         r.FillPolygon(p, 3);
     },
     "000"},
    {"PolygonOfNoPoints",
     {0, 0, 2, 0},
     [](KSRaster& r) {
         r.FillPolygon(nullptr, 0);
         r.FillPolygon(nullptr, -3);
     },
     "000"},
    {"TriangleApexAndBase",
     {0, 0, 4, 4},
     [](KSRaster& r) {
         r.FillTriangle({0, 0}, {4, 4}, {0, 4});
     },
     "00000/11000/11100/11110/11111"},
    {"TriangleMiddleRowTwice",
     {0, 0, 4, 4},
     [](KSRaster& r) {
         r.FillTriangle({0, 4}, {4, 2}, {0, 0});
     },
     "00000/11100/22222/11100/00000"},
    {"TriangleOnOneRow",
     {0, 0, 2, 0},
     [](KSRaster& r) {
         r.FillTriangle({0, 0}, {2, 0}, {1, 0});
     },
     "000"},
};

TEST(Drawing, PaintsThesePictures) {
    for (const picture& p : kPictures)
        EXPECT_EQ(Painted(p.frame, p.draw), p.want) << p.name;
}

TEST(Drawing, PolygonTakesCrossingsFarLeftForUnset) {
    const point points[] = {{-40000, 0}, {3, 0}, {3, 2}, {-40000, 2}};
    // The right edge is recorded first, the left one counts as none: only the column of the right one is
    // left.
    EXPECT_EQ(Painted({0, 0, 3, 2}, [&](KSRaster& r) { r.FillPolygon(points, 4); }), "0000/0001/0001");
}

TEST(Drawing, PatternIsFixedToThePlane) {
    const unsigned char stripes[8] = {0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    KSRaster raster({-3, -3, 12, 5});
    raster.SetPattern(stripes);
    raster.SetDrawingMode(kMergeCopy);
    raster.SetHighColor(1, 0, 0, 255);
    raster.SetLowColor(ks_color(2, 0, 0, 255));
    raster.FillRect(raster.Frame());
    for (long x = -3; x <= 12; x++)
        EXPECT_EQ(PixelAt(raster, x, -1), x % 2 == 0 ? 0xFF010000 : 0xFF020000) << x;
    const std::uint32_t first = PixelAt(raster, -3, -3);
    raster.OffsetBy(1, 0);
    raster.FillRect(raster.Frame());
    EXPECT_NE(PixelAt(raster, -2, -3), first);
}

// A raster beside a canvas of the same frame and contents.
struct pair {
    std::unique_ptr<KSRaster> raster;
    reference::canvas canvas;
};

// Returns a colour that is often opaque or clear.
std::uint32_t RandomColor(std::mt19937& random) {
    const std::uint32_t word = random(), alpha = random() % 4;
    return alpha == 0 ? word & 0x00FFFFFF : alpha == 1 ? word | 0xFF000000 : word;
}

pair MakePair(rect frame, ks_raster_native native, std::mt19937& random) {
    pair p{std::make_unique<KSRaster>(frame, nullptr, KS_RGBA_COLOR_SPACE, native), reference::canvas(frame)};
    for (std::size_t i = 0; i < p.canvas.pixels.size(); i++) {
        p.canvas.pixels[i] = RandomColor(random);
        const long x = static_cast<long>(i) % p.canvas.Width(), y = static_cast<long>(i) / p.canvas.Width();
        auto* row = static_cast<unsigned char*>(p.raster->Bits()) + y * p.raster->BytesPerRow();
        reinterpret_cast<std::uint32_t*>(row)[x] = p.canvas.pixels[i];
    }
    return p;
}

std::string Differences(const pair& p) {
    const rect frame = p.raster->Frame();
    for (long y = frame.top; y <= frame.bottom; y++)
        for (long x = frame.left; x <= frame.right; x++)
            if (PixelAt(*p.raster, x, y) != p.canvas.pixels[p.canvas.Index(x, y)])
                return "pixel " + std::to_string(x) + ", " + std::to_string(y) + " painted " +
                       std::to_string(p.canvas.counts[p.canvas.Index(x, y)]) + " times";
    return "";
}

struct shape {
    const char* name;
    long x[6], y[6];
    std::vector<point> points;
};

TEST(Drawing, FilledEllipsesAreRunsThroughout) {
    // Erase tells runs from pixels, on which its kernels differ.
    const rect frame(0, 0, 4, 4);
    KSRaster raster(frame);
    reference::canvas canvas(frame);
    raster.FillAlpha(200);
    canvas.pixels.assign(25, 0xC8000000);
    canvas.mode = kMergeErase;
    canvas.high = 0x20000000;
    raster.SetDrawingMode(kMergeErase);
    raster.SetHighColor(0, 0, 0, 0x20);
    raster.FillEllipse(frame);
    canvas.FillEllipse(0, 0, 4, 4);
    ForEachPixel(
        frame, [&](long x, long y) { EXPECT_EQ(PixelAt(raster, x, y), canvas.pixels[canvas.Index(x, y)]); });
}

// Returns a random shape with corners up to `reach` pixels outside the frame.
shape RandomShape(rect frame, long reach, std::mt19937& random) {
    static const char* const kNames[] = {"FillRect",    "StrokeRect",    "StrokeLine",  "PutPixel",
                                         "FillEllipse", "StrokeEllipse", "FillPolygon", "FillTriangle"};
    const auto pick = [&](long low, long high) {
        return std::uniform_int_distribution<long>(low, high)(random);
    };
    shape s{kNames[pick(0, 7)], {}, {}, {}};
    for (int i = 0; i < 6; i++) {
        s.x[i] = pick(frame.left - reach, frame.right + reach);
        s.y[i] = pick(frame.top - reach, frame.bottom + reach);
    }
    for (long i = pick(1, 6); i-- > 0;)
        s.points.emplace_back(s.x[i], s.y[i]);
    return s;
}

void FillPolygon(KSRaster& raster, const std::vector<point>& points) {
    raster.FillPolygon(points.data(), static_cast<long>(points.size()));
}
void FillPolygon(reference::canvas& canvas, const std::vector<point>& points) {
    canvas.FillPolygon(points);
}

// Draws a shape on a raster or on a canvas.
template <class Target> void Draw(Target& target, const shape& s) {
    const std::string name = s.name;
    const auto [left, right] = std::minmax(s.x[0], s.x[1]);
    const auto [top, bottom] = std::minmax(s.y[0], s.y[1]);
    if (name == "FillRect")
        target.FillRect(s.x[0], s.y[0], s.x[1], s.y[1]);
    else if (name == "StrokeRect")
        target.StrokeRect(s.x[0], s.y[0], s.x[1], s.y[1]);
    else if (name == "StrokeLine")
        target.StrokeLine(s.x[0], s.y[0], s.x[1], s.y[1]);
    else if (name == "PutPixel")
        target.PutPixel(s.x[0], s.y[0]);
    else if (name == "FillEllipse")
        target.FillEllipse(left, top, right, bottom);
    else if (name == "StrokeEllipse")
        target.StrokeEllipse(left, top, right, bottom);
    else if (name == "FillPolygon")
        FillPolygon(target, s.points);
    else
        target.FillTriangle({s.x[0], s.y[0]}, {s.x[1], s.y[1]}, {s.x[2], s.y[2]});
}

// Sets the same random drawing state on both.
void SetState(pair& p, std::mt19937& random, const unsigned char (&pattern)[8]) {
    p.canvas.mode = static_cast<int>(random() % kMergeCount);
    p.canvas.high = RandomColor(random);
    p.canvas.low = RandomColor(random);
    p.canvas.pattern = random() % 3 == 0 ? pattern : nullptr;
    const auto color = [](std::uint32_t word) {
        return ks_color(static_cast<std::uint8_t>(word >> 16), static_cast<std::uint8_t>(word >> 8),
                        static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 24));
    };
    p.raster->SetDrawingMode(static_cast<ks_composition_mode>(p.canvas.mode));
    p.raster->SetHighColor(color(p.canvas.high));
    p.raster->SetLowColor(color(p.canvas.low));
    p.raster->SetPattern(p.canvas.pattern);
}

// Every shape starts from the same state of rand(), so that the order of Dissolve's pixels is compared too.
void RunProgram(unsigned seed, long size, long reach, int shapes) {
    std::mt19937 random(seed);
    const auto pick = [&](long low, long high) {
        return std::uniform_int_distribution<long>(low, high)(random);
    };
    const long left = pick(-300, 300), top = pick(-300, 300);
    const rect frame(left, top, left + pick(0, size), top + pick(0, size));
    pair p = MakePair(frame, random() % 2 ? kRasterInMemory : kRasterInBBitmap, random);
    unsigned char pattern[8];
    for (unsigned char& row : pattern)
        row = static_cast<unsigned char>(random());
    for (int i = 0; i < shapes; i++) {
        SetState(p, random, pattern);
        const shape drawn = RandomShape(frame, reach, random);
        std::srand(seed);
        Draw(*p.raster, drawn);
        std::srand(seed);
        Draw(p.canvas, drawn);
        ASSERT_EQ(Differences(p), "") << "seed " << seed << ", shape number " << i << ", " << drawn.name
                                      << ", mode " << p.canvas.mode << (p.canvas.pattern ? ", pattern" : "");
    }
}

TEST(Drawing, RandomProgramsPaintWhatThePlainAlgorithmsPaint) {
    // Far outside the frame, across its border, and within it.
    constexpr long kReach[] = {400, 50, 0};
    for (unsigned seed = 1; seed <= 1500; seed++)
        RunProgram(seed, seed % 10 == 0 ? 200 : 40, kReach[seed % 3], 12);
}

}  // namespace
