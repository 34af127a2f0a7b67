// SPDX-License-Identifier: MIT
// Polygons and triangles.
#include "hdr/ks_math.h"
#include "raster/KSRaster.h"
#include "raster/crossings.h"
#include "raster/painter.h"

#include <cstdlib>
#include <utility>

namespace {

// An edge of a triangle: the column x1 + (y - y1) * (x2 - x1) / (y2 - y1), truncated, of one row after
// another, for y1 < y2.
class edge_columns {
public:
    edge_columns(KSPoint<long> from, KSPoint<long> to, long row)
        : _start(from.x), _sign(to.x < from.x ? -1 : 1), _height(static_cast<unsigned long>(to.y - from.y)) {
        const auto width = static_cast<unsigned long>(std::labs(to.x - from.x));
        const unsigned long product = static_cast<unsigned long>(row - from.y) * width;
        _whole = width / _height;
        _rest = width % _height;
        _distance = product / _height;
        _error = product % _height;
    }

    long Column() const { return _start + _sign * static_cast<long>(_distance); }
    void NextRow() {
        _distance += _whole;
        _error += _rest;
        if (_error >= _height) {
            _error -= _height;
            _distance++;
        }
    }

private:
    long _start;
    long _sign;
    unsigned long _height;
    unsigned long _whole, _rest;      // columns per row
    unsigned long _distance, _error;  // columns so far, and what is left of one in parts of _height
};

// Fills between two edges from `top` to `bottom`, a row at a time.
void FillBetween(const ks_painter& painter, std::pair<KSPoint<long>, KSPoint<long>> one,
                 std::pair<KSPoint<long>, KSPoint<long>> other, long top, long bottom) {
    const long first = MAX(top, painter.ShapeFrame().top), last = MIN(bottom, painter.ShapeFrame().bottom);
    if (top == bottom || first > last)
        return;
    edge_columns a(one.first, one.second, first), b(other.first, other.second, first);
    for (long y = first; y <= last; y++, a.NextRow(), b.NextRow())
        if (a.Column() != b.Column())
            painter.Fill(MIN(a.Column(), b.Column()), y, MAX(a.Column(), b.Column()), y);
}

}  // namespace

void KSRaster::polyline(long x1, long y1, long x2, long y2, KSList<ks_polyline_entry>& crossings) const {
    if (!ks_painter::InShapeRange(x1, y1, x2, y2))
        return;
    crossing_recorder recorder(crossings, MAX(MIN(y1, y2), _frame.top), MIN(MAX(y1, y2), _frame.bottom));
    recorder.Record({x1, y1}, {x2, y2});
}

void KSRaster::FillPolygon(const KSPoint<long>* points, long count) {
    const ks_painter painter(*this);
    if (count < 1)
        return;
    long top = points[0].y, bottom = top;
    for (long i = 0; i < count; i++) {
        if (!painter.InShapeRange(points[i].x, points[i].y, 0, 0))
            return;
        top = MIN(top, points[i].y);
        bottom = MAX(bottom, points[i].y);
    }

    KSList<ks_polyline_entry> crossings;
    crossing_recorder recorder(crossings, MAX(top, painter.ShapeFrame().top),
                               MIN(bottom, painter.ShapeFrame().bottom));
    for (long i = 0; i < count; i++)
        recorder.Record(points[i], points[i + 1 < count ? i + 1 : 0]);
    for (const ks_polyline_entry& row : crossings) {
        const std::int32_t second = row.second < kUnsetBelow ? row.first : row.second;
        painter.Fill(MIN(row.first, second), row.scanline, MAX(row.first, second), row.scanline);
    }
}

void KSRaster::FillTriangle(KSPoint<long> a, KSPoint<long> b, KSPoint<long> c) {
    const ks_painter painter(*this);
    if (!painter.InShapeRange(a.x, a.y, b.x, b.y) || !painter.InShapeRange(c.x, c.y, c.x, c.y) ||
        !painter.ShapeFrame().IsValid())
        return;
    if (b.y < a.y)
        std::swap(a, b);
    if (c.y < b.y)
        std::swap(b, c);
    if (b.y < a.y)
        std::swap(a, b);
    FillBetween(painter, {a, b}, {a, c}, a.y, b.y);
    FillBetween(painter, {a, c}, {b, c}, b.y, c.y);
}
