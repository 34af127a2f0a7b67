// SPDX-License-Identifier: MIT
// Shapes that a raster and the plain algorithms draw side by side.
#pragma once

#include "tests/raster/pixels.h"
#include "tests/reference/drawing.h"

#include <cstdlib>
#include <vector>

using point = KSPoint<long>;
using rect = KSRect<long>;

enum Shape {
    kFillRect,
    kStrokeRect,
    kStrokeLine,
    kPutPixel,
    kFillEllipse,
    kStrokeEllipse,
    kFillPolygon,
    kFillTriangle,
    kShapeCount
};

// How a raster or a canvas draws each shape from its points: any number for a polygon, 3 for a triangle, 1
// for a pixel, else 2.
template <class Target>
constexpr void (*kDrawShape[kShapeCount])(Target&, const std::vector<point>&) = {
    [](Target& t, const auto& p) { t.FillRect(p[0].x, p[0].y, p[1].x, p[1].y); },
    [](Target& t, const auto& p) { t.StrokeRect(p[0].x, p[0].y, p[1].x, p[1].y); },
    [](Target& t, const auto& p) { t.StrokeLine(p[0].x, p[0].y, p[1].x, p[1].y); },
    [](Target& t, const auto& p) { t.PutPixel(p[0].x, p[0].y); },
    [](Target& t, const auto& p) { t.FillEllipse(p[0].x, p[0].y, p[1].x, p[1].y); },
    [](Target& t, const auto& p) { t.StrokeEllipse(p[0].x, p[0].y, p[1].x, p[1].y); },
    [](Target& t, const auto& p) { t.FillPolygon(p.data(), static_cast<long>(p.size())); },
    [](Target& t, const auto& p) { t.FillTriangle(p[0], p[1], p[2]); },
};

template <class Target> void Draw(Target& target, Shape shape, const std::vector<point>& points) {
    kDrawShape<Target>[shape](target, points);
}

// A raster and a canvas with the same frame, pixels and drawing state. At first every shape adds 1 to the
// pixels of an opaque black image, so that they count how often they are painted.
struct side_by_side {
    KSRaster raster;
    reference::canvas canvas;

    explicit side_by_side(rect frame, ks_raster_native native = kRasterInMemory)
        : raster(frame, nullptr, KS_RGBA_COLOR_SPACE, native), canvas(frame) {
        SetPixels([] { return 0xFF000000; });
        SetState(kMergeAdd, 0xFF000001, 0, nullptr);
    }

    // Sets one pixel after another to what `next` returns.
    template <class Next> void SetPixels(Next next) {
        ForEachPixel(raster.Frame(),
                     [&](long x, long y) { PixelAt(raster, x, y) = canvas.At(x, y) = next(); });
    }

    void SetState(ks_composition_mode mode, std::uint32_t high, std::uint32_t low,
                  const unsigned char* pattern) {
        raster.SetDrawingMode(mode);
        raster.SetHighColor(ks_color_of(high));
        raster.SetLowColor(ks_color_of(low));
        raster.SetPattern(pattern);
        canvas.mode = mode;
        canvas.high = high;
        canvas.low = low;
        canvas.pattern = pattern;
    }

    // Draws a shape on the raster and calls `want(canvas)`, both from the same state of rand(). Returns
    // whether both have the same pixels then.
    template <class Want> bool Alike(Shape shape, const std::vector<point>& points, Want want) {
        std::srand(1);
        Draw(raster, shape, points);
        std::srand(1);
        want(canvas);
        return PixelsOf(raster) == canvas.Pixels();
    }
    bool Alike(Shape shape, const std::vector<point>& points) {
        return Alike(shape, points, [&](reference::canvas& c) { Draw(c, shape, points); });
    }
};
