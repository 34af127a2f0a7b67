// SPDX-License-Identifier: MIT
// Runs any bytes as a drawing program; where its shapes are small, the plain algorithms have to agree.
#include "kits/BBitmap.h"
#include "raster/KSRaster.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/raster/pixels.h"
#include "tests/reference/drawing.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

using point = KSPoint<long>;
constexpr long kSmall = 4000;

// Reads numbers off a program; beyond its end there are zeros.
class program {
public:
    program(const std::uint8_t* data, std::size_t size) : _data(data), _size(size) {}

    bool IsAtEnd() const { return _size == 0; }
    long Number(std::size_t bytes) {
        std::uint64_t value = 0;
        const std::size_t count = std::min(bytes, _size);
        for (std::size_t i = 0; i < count; i++)
            value |= std::uint64_t{_data[i]} << (8 * i);
        _data += count;
        _size -= count;
        // The sign is that of the last byte asked for.
        const std::size_t unused = 8 * (8 - bytes);
        return static_cast<long>(value << unused) >> unused;
    }
    // A coordinate of 1, 2, 4 or 8 bytes, as the first one says.
    long Coordinate() { return Number(std::size_t{1} << (Number(1) & 3)); }

private:
    const std::uint8_t* _data;
    std::size_t _size;
};

struct session {
    std::unique_ptr<KSRaster> raster;
    reference::canvas canvas;
    unsigned char pattern[8] = {};
};

void SetState(session& s, program& p) {
    const auto mode = static_cast<ks_composition_mode>(static_cast<std::uint8_t>(p.Number(1)) % kMergeCount);
    s.raster->SetDrawingMode(mode);
    s.canvas.mode = mode;
    s.canvas.high = static_cast<std::uint32_t>(p.Number(4));
    s.canvas.low = static_cast<std::uint32_t>(p.Number(4));
    const auto component = [](std::uint32_t word, int shift) {
        return static_cast<long>(word >> shift & 255);
    };
    const std::uint32_t high = s.canvas.high, low = s.canvas.low;
    s.raster->SetHighColor(component(high, 16), component(high, 8), component(high, 0), component(high, 24));
    s.raster->SetLowColor(component(low, 16), component(low, 8), component(low, 0), component(low, 24));
    const bool patterned = p.Number(1) & 1;
    for (unsigned char& row : s.pattern)
        row = static_cast<unsigned char>(p.Number(1));
    s.canvas.pattern = patterned ? s.pattern : nullptr;
    s.raster->SetPattern(s.canvas.pattern);
}

void FillPolygon(KSRaster& raster, const std::vector<point>& points) {
    raster.FillPolygon(points.data(), static_cast<long>(points.size()));
}
void FillPolygon(reference::canvas& canvas, const std::vector<point>& points) {
    canvas.FillPolygon(points);
}

template <class Target> void Draw(Target& target, long shape, const std::vector<point>& p) {
    switch (shape & 7) {
    case 0:
        return target.FillRect(p[0].x, p[0].y, p[1].x, p[1].y);
    case 1:
        return target.StrokeRect(p[0].x, p[0].y, p[1].x, p[1].y);
    case 2:
        return target.StrokeLine(p[0].x, p[0].y, p[1].x, p[1].y);
    case 3:
        return target.PutPixel(p[0].x, p[0].y);
    case 4:
        return target.FillEllipse(p[0].x, p[0].y, p[1].x, p[1].y);
    case 5:
        return target.StrokeEllipse(p[0].x, p[0].y, p[1].x, p[1].y);
    case 6:
        return FillPolygon(target, p);
    default:
        return target.FillTriangle(p[0], p[1], p[2]);
    }
}

void Compare(const session& s) {
    ForEachPixel(s.raster->Frame(), [&](long x, long y) {
        Require(PixelAt(*s.raster, x, y) == s.canvas.pixels[s.canvas.Index(x, y)],
                "a pixel is not what the plain algorithm paints");
    });
}

void RunShape(session& s, program& p) {
    const long shape = p.Number(1);
    std::vector<point> points(3 + (static_cast<std::size_t>(shape) >> 3 & 3));
    bool small = true;
    for (point& corner : points) {
        corner = {p.Coordinate(), p.Coordinate()};
        small = small && std::max(std::labs(corner.x / 2), std::labs(corner.y / 2)) < kSmall / 2;
    }
    const bool ellipse = (shape & 7) == 4 || (shape & 7) == 5;
    if (ellipse && small && (points[0].x > points[1].x || points[0].y > points[1].y))
        return;
    std::srand(1);
    Draw(*s.raster, shape, points);
    if (!small) {
        ForEachPixel(s.raster->Frame(), [&](long x, long y) {
            s.canvas.pixels[s.canvas.Index(x, y)] = PixelAt(*s.raster, x, y);
        });
        return;
    }
    std::srand(1);
    Draw(s.canvas, shape, points);
    Compare(s);
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    std::vector<std::vector<std::uint8_t>> seeds;
    for (std::uint8_t shape = 0; shape < 8; shape++)
        for (const std::uint8_t mode : {0, 3, 4, 11, 19})
            seeds.push_back({0,
                             0,
                             0,
                             250,
                             30,
                             20,
                             1,
                             mode,
                             1,
                             2,
                             3,
                             128,
                             4,
                             5,
                             6,
                             255,
                             static_cast<std::uint8_t>(mode & 1),
                             1,
                             2,
                             4,
                             8,
                             16,
                             32,
                             64,
                             128,
                             0,
                             shape,
                             0,
                             1,
                             0,
                             2,
                             0,
                             25,
                             0,
                             18,
                             0,
                             9,
                             0,
                             15,
                             0,
                             shape,
                             2,
                             0,
                             0,
                             0,
                             128,
                             2,
                             1,
                             0,
                             0,
                             128,
                             2,
                             255,
                             255,
                             255,
                             127,
                             2,
                             0,
                             0,
                             0,
                             127,
                             0,
                             0,
                             0,
                             9});
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    program p(data, size);
    const bool bitmap = p.Number(1) & 1;
    const long left = p.Coordinate() % 100000, top = p.Coordinate() % 100000;
    const KSRect<long> frame{left, top, left + (p.Number(1) & 63), top + (p.Number(1) & 63)};
    session s{std::make_unique<KSRaster>(frame, nullptr, KS_RGBA_COLOR_SPACE,
                                         bitmap ? kRasterInBBitmap : kRasterInMemory),
              reference::canvas(frame)};
    for (int i = 0; i < 40 && !p.IsAtEnd(); i++)
        if (p.Number(1) & 1)
            SetState(s, p);
        else
            RunShape(s, p);
    return 0;
}
