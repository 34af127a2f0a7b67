// SPDX-License-Identifier: MIT
// Runs any bytes as a drawing program, beside the plain algorithms. Random bytes make a mixed program.
#include "tests/fuzz/fuzz_target.h"
#include "tests/raster/shapes.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace {

constexpr long kLeast = std::numeric_limits<std::int32_t>::min();
constexpr long kMost = std::numeric_limits<std::int32_t>::max();
// Near which frames lie, and some corners. A polygon takes a second edge beyond column -32000 for none.
constexpr long kPlaces[] = {0, -32000, kLeast, kMost};

// Reads numbers off a program; beyond its end there are zeros.
class program {
public:
    program(const std::uint8_t* data, std::size_t size) : _data(data), _size(size) {}

    bool IsAtEnd() const { return _size == 0; }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Number(1)); }
    // Returns a signed number of so many bytes.
    long Number(std::size_t bytes) {
        std::uint64_t value = 0;
        const std::size_t count = std::min(bytes, _size);
        for (std::size_t i = 0; i < count; i++)
            value |= std::uint64_t{_data[i]} << (8 * i);
        _data += count;
        _size -= count;
        const std::size_t unused = 8 * (8 - bytes);
        return static_cast<long>(value << unused) >> unused;
    }
    // Returns a coordinate: near `origin` (1 byte), farther away (2), near one of the places or anywhere in
    // 32 bits, or anywhere in 64.
    long Coordinate(long origin, int widest) {
        const int kind = (Byte() & 3) % (widest + 1);
        const long number = Number(std::size_t{1} << kind);
        if (kind == 2 && Byte() & 1)
            return std::clamp(kPlaces[number & 3] + (number >> 24), kLeast, kMost);
        return kind == 0 ? origin + number : kind == 1 ? origin + number / 16 : number;
    }
    // Returns a colour; one in four is clear, one opaque.
    std::uint32_t Color() {
        const auto word = static_cast<std::uint32_t>(Number(4));
        const int kind = Byte() & 3;
        return kind == 0 ? word & 0x00FFFFFF : kind == 1 ? word | 0xFF000000 : word;
    }

private:
    const std::uint8_t* _data;
    std::size_t _size;
};

rect Frame(program& p) {
    const long left = kPlaces[p.Byte() & 3] + p.Number(1), top = kPlaces[p.Byte() & 3] + p.Number(1);
    return {left, top, left + p.Byte(), top + (p.Byte() & 31)};
}

std::vector<point> Points(program& p, Shape shape, const rect& frame) {
    constexpr std::size_t kCounts[] = {2, 2, 2, 1, 2, 2, 0, 3};
    std::vector<point> points(shape == kFillPolygon ? p.Byte() & 7 : kCounts[shape]);
    const int widest = std::min(std::countr_one(p.Byte()), 3);
    for (point& corner : points)
        corner = {p.Coordinate(frame.left, widest), p.Coordinate(frame.top, widest)};
    return points;
}

// Returns whether a shape takes its coordinates: only rectangles and pixels take those beyond 32 bits.
bool Takes(Shape shape, const std::vector<point>& p) {
    if (shape == kFillRect || shape == kStrokeRect || shape == kPutPixel ||
        (shape == kStrokeLine && (p[0].x == p[1].x || p[0].y == p[1].y)))
        return true;
    return std::all_of(p.begin(), p.end(), [](point c) {
        return std::clamp(c.x, kLeast, kMost) == c.x && std::clamp(c.y, kLeast, kMost) == c.y;
    });
}

// Returns whether the plain algorithm is quick: it walks along ellipses pixel by pixel.
bool IsQuick(Shape shape, const std::vector<point>& p) {
    constexpr long kLong = 10000;
    return (shape != kFillEllipse && shape != kStrokeEllipse) ||
           (std::labs(p[1].x - p[0].x) < kLong && std::labs(p[1].y - p[0].y) < kLong);
}

void RunShape(side_by_side& s, program& p) {
    const rect frame = s.raster.Frame();
    const auto shape = static_cast<Shape>(p.Byte() % kShapeCount);
    const std::vector<point> points = Points(p, shape, frame);
    const bool alike = s.Alike(shape, points, [&](reference::canvas& canvas) {
        if (!Takes(shape, points))
            return;
        if (IsQuick(shape, points))
            Draw(canvas, shape, points);
        else
            ForEachPixel(frame, [&](long x, long y) { canvas.At(x, y) = PixelAt(s.raster, x, y); });
    });
    Require(alike, "a shape differs from that of the plain algorithm");
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    return {};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    program p(data, size);
    const rect frame = Frame(p);
    side_by_side s(frame, p.Byte() & 1 ? kRasterInBBitmap : kRasterInMemory);
    Noise noise(p.Byte());
    s.SetPixels([&noise] { return noise.Pixel(); });
    unsigned char pattern[8];
    for (int i = 0; i < 40 && !p.IsAtEnd(); i++) {
        if (p.Byte() & 1) {
            const bool patterned = p.Byte() % 3 == 0;
            if (patterned)
                std::generate(std::begin(pattern), std::end(pattern), [&p] { return p.Byte(); });
            const auto mode = static_cast<ks_composition_mode>(p.Byte() % kMergeCount);
            const std::uint32_t high = p.Color(), low = p.Color();
            s.SetState(mode, high, low, patterned ? pattern : nullptr);
        }
        RunShape(s, p);
    }
    return 0;
}
