// SPDX-License-Identifier: MIT
// Ellipses, outlined and filled.
#include "hdr/ks_math.h"
#include "raster/KSRaster.h"
#include "raster/ellipse_walk.h"
#include "raster/painter.h"

namespace {

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

// Gives `form` the steps of an ellipse's walk that can show in the frame: those of the first part, the row in
// which the second part starts, and those of the second part from the first column that can show.
template <class Number, class Form>
void WalkVisible(const ks_painter& painter, const ellipse& e, Form&& form) {
    const KSRect<long>& frame = painter.ShapeFrame();
    const distances rows = DistancesFrom(e.y, frame.top, frame.bottom);
    const distances columns = DistancesFrom(e.x, frame.left, frame.right);
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

// The outline: the step's pixel in all four quadrants. On an axis two of the four are the same pixel; those
// of different steps never are.
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
// Clang 14 does not deduce it by itself.
template <class Put> outline(const ks_painter&, const ellipse&, const Put&) -> outline<Put>;

// The filled ellipse as defined: spans from the axes outwards in each quadrant.
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

// The same pixels as `spans`, painted as often but in long rows.
class long_rows {
public:
    long_rows(const ks_painter& painter, const ellipse& e) : _painter(painter), _e(e) {}

    void FirstPart(long x, long y) { RowPair(x, y); }
    // Paints again where the first part's spans meet.
    void Turn(long y) {
        _turn = y;
        if (!_once && y > 0)
            CenterColumn(y - 1);
    }
    // The upright spans of the columns up to x cover the rows up to y. Where the part starts, all those rows
    // have the same width; a later row is as wide as the column in which the outline reached it.
    void SecondPart(long x, long y) {
        if (_last < 0)
            Block(x, y);
        else if (y > _last)
            RowPair(x, y);
        _last = y;
        if (!_once && x == 0)
            CenterColumn(y);
    }

private:
    void Row(long x, long y) const { _painter.Fill(_e.x - x, _e.y + y, _e.x + x, _e.y + y); }
    void RowPair(long x, long y) const {
        Row(x, y);
        if (y > 0 || !_once)
            Row(x, -y);
    }
    void CenterColumn(long y) const {
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
    if (!painter.InShapeRange(box.left, box.top, box.right, box.bottom) || !box.IsValid() ||
        !painter.ShapeFrame().IsValid())
        return;
    const long x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2;
    paint(painter, ellipse{x, y, x - box.left, y - box.top});
}

}  // namespace

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
