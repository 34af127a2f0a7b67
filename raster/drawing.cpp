// SPDX-License-Identifier: MIT
// The raster's drawing primitives.
#include "hdr/ks_math.h"
#include "raster/KSRaster.h"
#include "raster/crossings.h"
#include "raster/ellipse_walk.h"
#include "raster/painter.h"

#include <cstdlib>
#include <utility>

namespace {

constexpr std::uint32_t Packed(long red, long green, long blue, long alpha) {
    return static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(red) << 16 |
           static_cast<std::uint32_t>(green) << 8 | static_cast<std::uint32_t>(blue);
}

// Distances from an axis, 0 or more.
struct distances {
    long nearest;
    long farthest;
};

// Returns how far the coordinates from `first` to `last` are from an axis.
constexpr distances DistancesFrom(long axis, long first, long last) {
    const long low = first - axis, high = last - axis;
    return {MAX(MAX(low, -high), 0L), MAX(-low, high)};
}

struct ellipse {
    long x, y;  // the centre
    long a, b;  // the radii
};

// Shows `form` the steps of an ellipse's walk that can show in the painter's reach: those of the first part,
// where the second part starts, and those of the second part, which may start later than it does.
template <class Number, class Form>
void WalkVisible(const ks_painter& painter, const ellipse& e, Form&& form) {
    const KSRect<long>& reach = painter.Reach();
    const distances rows = DistancesFrom(e.y, reach.top, reach.bottom);
    const distances columns = DistancesFrom(e.x, reach.left, reach.right);
    ks_ellipse_walk<Number> walk(e.a, e.b);
    walk.SkipToRow(rows.nearest);
    for (; walk.InFirstPart() && walk.Y() <= rows.farthest; walk.StepInFirstPart())
        form.FirstPart(walk.X(), walk.Y());
    walk.SkipToRow(e.b + 1);
    form.Turn(walk.Y());
    walk.SkipToColumn(columns.farthest);
    for (; walk.X() >= columns.nearest; walk.StepInSecondPart())
        form.SecondPart(walk.X(), walk.Y());
}

template <class Form> void WalkVisible(const ks_painter& painter, const ellipse& e, Form&& form) {
    constexpr long kSmall = 1 << 15;  // 64 bits hold all products of the walk
    if (e.a <= kSmall && e.b <= kSmall)
        WalkVisible<long>(painter, e, form);
    else
        WalkVisible<__int128>(painter, e, form);
}

// The outline: the step's pixel in all four quadrants. Two of the four coincide on an axis; those of
// different steps never do.
template <class Put> struct outline {
    const ks_painter& painter;
    const ellipse& e;
    const Put& put;
    const bool whole = painter.Inside(e.x - e.a, e.y - e.b) && painter.Inside(e.x + e.a, e.y + e.b);

    void PutVisible(long x, long y) const {
        if (whole || painter.Inside(x, y))
            put(painter.PlaceOf(x, y), x, y);
    }
    void FirstPart(long x, long y) const {
        if (x == 0 || y == 0) {
            painter.Plot(e.x + x, e.y + y);
            painter.Plot(e.x + x, e.y - y);
            painter.Plot(e.x - x, e.y + y);
            painter.Plot(e.x - x, e.y - y);
            return;
        }
        PutVisible(e.x + x, e.y + y);
        PutVisible(e.x + x, e.y - y);
        PutVisible(e.x - x, e.y + y);
        PutVisible(e.x - x, e.y - y);
    }
    void Turn(long) const {}
    void SecondPart(long x, long y) const { FirstPart(x, y); }
};
// Clang before 17 does not deduce the argument of an aggregate by itself.
template <class Put> outline(const ks_painter&, const ellipse&, const Put&) -> outline<Put>;

// The filled ellipse as it is defined: spans from the axes outwards, in each quadrant.
struct spans {
    const ks_painter& painter;
    const ellipse& e;

    void FirstPart(long x, long y) const {
        painter.Fill(e.x, e.y + y, e.x + x, e.y + y);
        painter.Fill(e.x - x, e.y + y, e.x, e.y + y);
        painter.Fill(e.x, e.y - y, e.x + x, e.y - y);
        painter.Fill(e.x - x, e.y - y, e.x, e.y - y);
    }
    void Turn(long) const {}
    void SecondPart(long x, long y) const {
        painter.Fill(e.x + x, e.y, e.x + x, e.y + y);
        painter.Fill(e.x + x, e.y - y, e.x + x, e.y);
        painter.Fill(e.x - x, e.y, e.x - x, e.y + y);
        painter.Fill(e.x - x, e.y - y, e.x - x, e.y);
    }
};

// The same pixels, painted as often as by `spans` but in another order: in long rows.
class long_rows {
public:
    long_rows(const ks_painter& painter, const ellipse& e) : _painter(painter), _e(e) {}

    void FirstPart(long x, long y) { RowPair(x, y); }
    // Paints again where the first part's spans meet.
    void Turn(long y) {
        _turn = y;
        if (!_once && y > 0)
            CentreColumn(y - 1);
    }
    // The upright spans of columns up to x reach over the rows up to y. Where the part starts, all those rows
    // are as wide; after that a row is as wide as the column in which the outline reached it.
    void SecondPart(long x, long y) {
        if (_last < 0)
            Block(x, y);
        else if (y > _last)
            RowPair(x, y);
        _last = y;
        if (!_once && x == 0)
            CentreColumn(y);
    }

private:
    void Row(long x, long y) const { _painter.Fill(_e.x - x, _e.y + y, _e.x + x, _e.y + y); }
    void RowPair(long x, long y) const {
        Row(x, y);
        if (y > 0 || !_once)
            Row(x, -y);
    }
    void CentreColumn(long y) const {
        _painter.Fill(_e.x, _e.y - y, _e.x, _e.y + y);
        _painter.Fill(_e.x, _e.y, _e.x, _e.y);
    }
    void Block(long x, long y) const {
        if (!_once) {
            _painter.Fill(_e.x - x, _e.y - y, _e.x + x, _e.y + y);
            Row(x, 0);
            return;
        }
        // The first part has painted the rows before the turn.
        _painter.Fill(_e.x - x, _e.y - y, _e.x + x, _e.y - MAX(_turn, 1L));
        _painter.Fill(_e.x - x, _e.y + _turn, _e.x + x, _e.y + y);
    }

    const ks_painter& _painter;
    const ellipse& _e;
    const bool _once = _painter.PaintsOnce();
    long _turn = 0;
    long _last = -1;
};

// Calls `paint(painter, ellipse)` for the ellipse of a box, if anything of it can show.
template <class Paint> void WithEllipse(const KSRaster& raster, const KSRect<long>& box, const Paint& paint) {
    const ks_painter painter(raster);
    if (!painter.Takes(box.left, box.top, box.right, box.bottom) || !box.IsValid() ||
        !painter.Reach().IsValid())
        return;
    const long x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2;
    paint(painter, ellipse{x, y, x - box.left, y - box.top});
}

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
    const long first = MAX(top, painter.Reach().top), last = MIN(bottom, painter.Reach().bottom);
    if (top == bottom || first > last)
        return;
    edge_columns a(one.first, one.second, first), b(other.first, other.second, first);
    for (long y = first; y <= last; y++, a.NextRow(), b.NextRow())
        if (a.Column() != b.Column())
            painter.Fill(MIN(a.Column(), b.Column()), y, MAX(a.Column(), b.Column()), y);
}

}  // namespace

void KSRaster::SetHighColor(long red, long green, long blue, long alpha) {
    _high_color = Packed(red, green, blue, alpha);
}

void KSRaster::SetLowColor(long red, long green, long blue, long alpha) {
    _low_color = Packed(red, green, blue, alpha);
}

void KSRaster::FillRect(long left, long top, long right, long bottom) {
    ks_painter(*this).Fill(left, top, right, bottom);
}

void KSRaster::StrokeRect(long left, long top, long right, long bottom) {
    const ks_painter painter(*this);
    painter.Fill(left, top, right, top);
    painter.Fill(left, bottom, right, bottom);
    painter.Fill(left, top, left, bottom);
    painter.Fill(right, top, right, bottom);
}

void KSRaster::StrokeLine(long x1, long y1, long x2, long y2) {
    const ks_painter painter(*this);
    if (x1 == x2 || y1 == y2) {
        NORM(x1, x2);
        NORM(y1, y2);
        painter.Fill(x1, y1, x2, y2);
    } else {
        painter.Line(x1, y1, x2, y2);
    }
}

void KSRaster::PutPixel(long x, long y) {
    ks_painter(*this).Plot(x, y);
}

void KSRaster::StrokeEllipse(long x1, long y1, long x2, long y2) {
    WithEllipse(*this, {x1, y1, x2, y2}, [](const ks_painter& painter, const ellipse& e) {
        painter.PaintPixels([&](const auto& put) { WalkVisible(painter, e, outline{painter, e, put}); });
    });
}

void KSRaster::FillEllipse(long x1, long y1, long x2, long y2) {
    WithEllipse(*this, {x1, y1, x2, y2}, [](const ks_painter& painter, const ellipse& e) {
        if (painter.NeedsOrder())
            WalkVisible(painter, e, spans{painter, e});
        else
            WalkVisible(painter, e, long_rows(painter, e));
    });
}

void KSRaster::polyline(long x1, long y1, long x2, long y2, KSList<ks_polyline_entry>& crossings) const {
    if (!ks_painter::Takes(x1, y1, x2, y2))
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
        if (!painter.Takes(points[i].x, points[i].y, 0, 0))
            return;
        top = MIN(top, points[i].y);
        bottom = MAX(bottom, points[i].y);
    }

    KSList<ks_polyline_entry> crossings;
    crossing_recorder recorder(crossings, MAX(top, painter.Reach().top), MIN(bottom, painter.Reach().bottom));
    for (long i = 0; i < count; i++)
        recorder.Record(points[i], points[i + 1 < count ? i + 1 : 0]);
    for (const ks_polyline_entry& row : crossings) {
        const std::int32_t second = row.second < kUnsetBelow ? row.first : row.second;
        painter.Fill(MIN(row.first, second), row.scanline, MAX(row.first, second), row.scanline);
    }
}

void KSRaster::FillTriangle(KSPoint<long> a, KSPoint<long> b, KSPoint<long> c) {
    const ks_painter painter(*this);
    if (!painter.Takes(a.x, a.y, b.x, b.y) || !painter.Takes(c.x, c.y, c.x, c.y) ||
        !painter.Reach().IsValid())
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
