// SPDX-License-Identifier: MIT
// The drawing primitives in their plainest form: a pixel at a time, clipped last.
//
// A canvas is a plain array with a frame. It paints by the kernels of the modes, which have an oracle of
// their own, and takes time in proportion to the shapes.
#pragma once

#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "merge/KSMerge.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace reference {

__extension__ using wide = __int128;

class canvas {
public:
    explicit canvas(KSRect<long> frame)
        : _frame(frame), _pixels(static_cast<std::size_t>(frame.PixelWidth() * frame.PixelHeight())) {}

    std::uint32_t high = 0xFFFFFFFF;
    std::uint32_t low = 0;
    const unsigned char* pattern = nullptr;
    int mode = kMergeOver;

    // Returns a pixel of the frame.
    std::uint32_t& At(long x, long y) {
        return _pixels[static_cast<std::size_t>((y - _frame.top) * _frame.PixelWidth() + (x - _frame.left))];
    }

    // Returns the pixels of the frame, row by row.
    const std::vector<std::uint32_t>& Pixels() const { return _pixels; }

    void FillRect(long left, long top, long right, long bottom) {
        for (long y = std::max(top, _frame.top); y <= std::min(bottom, _frame.bottom); y++)
            for (long x = std::max(left, _frame.left); x <= std::min(right, _frame.right); x++)
                if (pattern)
                    PutPixel(x, y);
                else
                    KSMerge::hash_color_func[mode](&At(x, y), high, 255, 1);
    }

    void StrokeRect(long left, long top, long right, long bottom) {
        FillRect(left, top, right, top);
        FillRect(left, bottom, right, bottom);
        FillRect(left, top, left, bottom);
        FillRect(right, top, right, bottom);
    }

    void PutPixel(long x, long y) {
        if (x < _frame.left || x > _frame.right || y < _frame.top || y > _frame.bottom)
            return;
        const bool set = pattern == nullptr || ((pattern[y & 7] >> (x & 7)) & 1) != 0;
        At(x, y) = KSMerge::hash_pixel_func[mode](At(x, y), set ? high : low, 255);
    }

    void StrokeLine(long x1, long y1, long x2, long y2) {
        if (x1 == x2 || y1 == y2)
            return FillRect(std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2));
        const wide dx = std::abs(x2 - x1), dy = std::abs(y2 - y1);
        const bool steep = dy > dx;
        const wide major = steep ? dy : dx, minor = steep ? dx : dy;
        // The steps at which the major coordinate lies in the frame.
        const long start = steep ? y1 : x1, end = steep ? y2 : x2;
        const long least = steep ? _frame.top : _frame.left, most = steep ? _frame.bottom : _frame.right;
        const wide first = start < end ? least - start : start - most;
        const wide last = start < end ? most - start : start - least;
        for (wide i = std::max<wide>(first, 0); i <= std::min(last, major); i++) {
            // Before step i, the minor coordinate has moved round(i * minor / major) times, halves up.
            const wide moved = (2 * minor * i + major) / (2 * major);
            const auto along = static_cast<long>(steep ? moved : i),
                       down = static_cast<long>(steep ? i : moved);
            PutPixel(x2 > x1 ? x1 + along : x1 - along, y2 > y1 ? y1 + down : y1 - down);
        }
    }

    void StrokeEllipse(long x1, long y1, long x2, long y2) {
        WalkEllipse(x1, y1, x2, y2, [this](bool, long cx, long cy, long x, long y) {
            for (const long across : {x, -x})
                for (const long down : {y, -y})
                    PutPixel(cx + across, cy + down);
        });
    }

    // Level lines in the first part, and upright ones in the second, each from an axis to the outline.
    void FillEllipse(long x1, long y1, long x2, long y2) {
        WalkEllipse(x1, y1, x2, y2, [this](bool level, long cx, long cy, long x, long y) {
            const long corners[][2] = {
                {x, y}, {level ? -x : x, level ? y : -y}, {level ? x : -x, level ? -y : y}, {-x, -y}};
            for (const auto& [across, down] : corners)
                StrokeLine(level ? cx : cx + across, level ? cy + down : cy, cx + across, cy + down);
        });
    }

    void FillPolygon(const KSPoint<long>* points, long count) {
        std::vector<std::array<long, 3>> crossings;
        for (long i = 0; i < count; i++)
            Crossings(points[i], points[(i + 1) % count], crossings);
        for (const auto& [row, first, second] : crossings)
            StrokeLine(first, row, second < -32000 ? first : second, row);
    }

    void FillTriangle(KSPoint<long> a, KSPoint<long> b, KSPoint<long> c) {
        std::array<KSPoint<long>, 3> p{a, b, c};
        for (int i : {0, 1, 0})
            if (p[i].y > p[i + 1].y)
                std::swap(p[i], p[i + 1]);
        if (p[1].y != p[0].y)
            Between(p[0], p[1], p[0], p[2], p[0].y, p[1].y);
        if (p[2].y != p[1].y)
            Between(p[0], p[2], p[1], p[2], p[1].y, p[2].y);
    }

private:
    KSRect<long> _frame;
    std::vector<std::uint32_t> _pixels;  // row after row, without gaps

    // Calls `paint(first, cx, cy, x, y)` for the places of one quadrant around the centre. In the first part
    // y grows with every step, in the second x shrinks.
    template <class Paint> static void WalkEllipse(long x1, long y1, long x2, long y2, Paint paint) {
        if (x1 > x2 || y1 > y2)
            return;
        const long cx = (x1 + x2) / 2, cy = (y1 + y2) / 2;
        const wide a2 = wide{cx - x1} * (cx - x1), b2 = wide{cy - y1} * (cy - y1);
        long x = cx - x1, y = 0;
        const auto d1 = [&] {
            return 2 * a2 * (y + 1) * (y + 1) + 2 * b2 * x * (x - 1) - 2 * a2 * b2 + b2 / 2;
        };
        const auto d2 = [&] {
            return 2 * a2 * y * (y + 1) + 2 * b2 * (x - 1) * (x - 1) - 2 * a2 * b2 + a2 / 2;
        };
        for (; d2() < 0; y++) {
            paint(true, cx, cy, x, y);
            x -= d1() >= 0;
        }
        for (; x >= 0; x--) {
            paint(false, cx, cy, x, y);
            y += d2() < 0;
        }
    }

    void Crossings(KSPoint<long> from, KSPoint<long> to, std::vector<std::array<long, 3>>& crossings) {
        if (from.y == to.y)
            return;
        if (to.y < from.y)
            std::swap(from, to);
        const long slope = (to.x - from.x) * 256 / (to.y - from.y);
        for (long y = std::max(from.y + 1, _frame.top); y <= std::min(to.y, _frame.bottom); y++) {
            const long fixed = from.x * 256 + slope * (y - from.y);
            const auto found =
                std::find_if(crossings.begin(), crossings.end(), [y](const auto& c) { return c[0] == y; });
            if (found != crossings.end())
                (*found)[2] = fixed >> 8;
            else
                crossings.push_back({y, fixed >> 8, -32001});
        }
    }

    static long ColumnAt(KSPoint<long> from, KSPoint<long> to, long y) {
        return from.x + static_cast<long>(wide{y - from.y} * (to.x - from.x) / (to.y - from.y));
    }

    void Between(KSPoint<long> a1, KSPoint<long> a2, KSPoint<long> b1, KSPoint<long> b2, long top,
                 long bottom) {
        for (long y = std::max(top, _frame.top); y <= std::min(bottom, _frame.bottom); y++) {
            const long a = ColumnAt(a1, a2, y), b = ColumnAt(b1, b2, y);
            if (a != b)
                FillRect(std::min(a, b), y, std::max(a, b), y);
        }
    }
};

}  // namespace reference
