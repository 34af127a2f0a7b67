// SPDX-License-Identifier: MIT
#include "raster/ks_coverage.h"

#include "bitmaptools/levels.h"
#include "hdr/ks_assert.h"
#include "merge/rows.h"
#include "raster/round_shape.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <limits>
#include <new>
#include <optional>
#include <tuple>

namespace {

using Page = KSPixels<std::uint32_t>;
using Mask = KSPixels<const std::uint8_t>;

constexpr long kRun = 256;  // how many pixels of a layer are made at once

// Composes a colour by coverage onto a page, run by run.
class coverage_painter {
public:
    coverage_painter(const Page& page, ks_color color, ks_composition_mode mode, std::uint32_t opacity)
        : _page(page), _color(ks_pixel_word(color)), _mode(mode), _opacity(opacity) {
        KS_ASSERT(mode >= 0 && mode < kMergeCount);
        _compose = KSMerge::hash_array_func[mode];
        _fill = ks_merge::color_rows(mode);
    }

    const Page& Pixels() const { return _page; }
    // Whether pixels of coverage 0 are painted too.
    bool PaintsUncovered() const { return KSMerge::merge_destructive[_mode]; }

    // Composes up to kRun pixels of the page from (x, y) on.
    void Paint(long x, long y, const std::uint8_t* coverage, long count) const {
        const auto same = [&](std::uint8_t value) {
            return coverage[0] == value &&
                   std::memcmp(coverage, coverage + 1, static_cast<std::size_t>(count - 1)) == 0;
        };
        if (same(0) && !PaintsUncovered())
            return;
        if (same(255))
            return Fill({x, y, x + (count - 1), y});
        std::uint32_t layer[kRun];
        ks_bitmaptools::ActiveFunctions().cover(layer, coverage, count, _color);
        _compose(_page.At(x, y), layer, _opacity, static_cast<std::int32_t>(count));
    }

    // Composes pixels of the page that are covered to the full.
    void Fill(const KSRect<long>& area) const {
        if (_mode != kMergeAlphaMask)
            return _fill(_page.At(area.left, area.top), _color, _opacity,
                         static_cast<std::int32_t>(area.PixelWidth()),
                         static_cast<std::int32_t>(area.PixelHeight()), _page.row_length);
        // The kernels of a colour do something else by this mode.
        std::uint32_t layer[kRun];
        std::fill_n(layer, kRun, _color);
        const long width = area.PixelWidth(), height = area.PixelHeight();
        for (long y = 0; y < height; y++)
            for (long x = 0; x < width; x += kRun)
                _compose(_page.At(area.left, area.top) + y * _page.row_length + x, layer, _opacity,
                         static_cast<std::int32_t>(std::min(kRun, width - x)));
    }

private:
    Page _page;
    std::uint32_t _color;
    ks_composition_mode _mode;
    std::uint32_t _opacity;
    ks_array_func _compose;
    ks_merge::color_rows_func _fill;
};

// Stores coverage, run by run, into a mask whose bytes are 0.
class coverage_store {
public:
    explicit coverage_store(const KSPixels<std::uint8_t>& mask) : _mask(mask) {}

    const KSPixels<std::uint8_t>& Pixels() const { return _mask; }
    bool PaintsUncovered() const { return false; }
    void Paint(long x, long y, const std::uint8_t* coverage, long count) const {
        std::copy_n(coverage, count, _mask.At(x, y));
    }
    void Fill(const KSRect<long>& area) const {
        for (long y = area.top; y <= area.bottom; y++)
            std::fill_n(_mask.At(area.left, y), area.PixelWidth(), std::uint8_t{255});
    }

private:
    KSPixels<std::uint8_t> _mask;
};

// The places of a visible part of some items, counted from the nearest end.
struct near_places {
    long least, most;

    near_places(long first, long last, long visible_first, long visible_last) {
        const auto near = [&](long i) { return std::min(i - first, last - i); };
        const long middle = (last - first) / 2;
        std::tie(least, most) = std::minmax({near(visible_first), near(visible_last)});
        if (visible_first - first <= middle && last - visible_last <= middle)
            most = middle;
    }
};

// A shape, and the part of it that a painter can paint.
template <class Painter> class shape_fill {
public:
    shape_fill(const Painter& painter, const ks_round_shape& shape, const KSRect<long>& visible)
        : _painter(painter),
          _shape(shape),
          _box(shape.Box()),
          _visible(visible),
          _columns(_box.left, _box.right, visible.left, visible.right),
          _rows(_box.top, _box.bottom, visible.top, visible.bottom) {}

    void Run() const {
        const long corners = std::min(_shape.Rows(), (_box.PixelHeight() + 1) / 2);
        for (long row = _rows.least; row <= std::min(_rows.most, corners - 1); row++)
            PaintRows(row);
        Fill(_box.left, _box.right, _box.top + corners, _box.bottom - corners);
    }

private:
    // Paints a row and its mirror image, unless that is the same.
    void PaintRows(long row) const {
        const long top = _box.top + row, bottom = _box.bottom - row;
        const ks_round_shape::edge edge = _shape.EdgeOf(row);
        const long first = std::max(_painter.PaintsUncovered() ? 0 : edge.first, _columns.least);
        const long last = std::min(edge.full - 1, _columns.most);
        std::uint8_t coverage[kRun], mirrored[kRun];
        for (long i = first; i <= last; i += kRun) {
            const long count = std::min(kRun, last - i + 1);
            const long on_right =
                std::clamp(_box.PixelWidth() / 2 - i, 0L, count);  // the middle is on the left
            _shape.Cover(row, i, count, coverage);
            std::reverse_copy(coverage, coverage + on_right, mirrored);
            for (const long y : {top, bottom}) {
                PaintRun(_box.left + i, y, coverage, count);
                PaintRun(_box.right - i - on_right + 1, y, mirrored, on_right);
                if (top == bottom)
                    break;
            }
        }
        Fill(_box.left + edge.full, _box.right - edge.full, top, top);
        if (top != bottom)
            Fill(_box.left + edge.full, _box.right - edge.full, bottom, bottom);
    }

    void PaintRun(long x, long y, const std::uint8_t* coverage, long count) const {
        const long first = std::max(x, _visible.left), last = std::min(x + count - 1, _visible.right);
        if (first <= last && y >= _visible.top && y <= _visible.bottom)
            _painter.Paint(first, y, coverage + (first - x), last - first + 1);
    }

    void Fill(long left, long right, long top, long bottom) const {
        const KSRect<long> area(std::max(left, _visible.left), std::max(top, _visible.top),
                                std::min(right, _visible.right), std::min(bottom, _visible.bottom));
        if (area.IsValid())
            _painter.Fill(area);
    }

    const Painter& _painter;
    const ks_round_shape& _shape;
    const KSRect<long>& _box;
    KSRect<long> _visible;
    near_places _columns, _rows;
};

// Whether shapes are drawn in a box.
bool CanBeDrawn(const KSRect<long>& box) {
    constexpr long kLongest = 1L << 31;
    const long width = box.PixelWidth(), height = box.PixelHeight();
    return box.IsValid() && width > 0 && width <= kLongest && height > 0 && height <= kLongest;
}

// Returns the part of a view that lies in a box, placed as if that started at (0, 0), where no sum of
// coordinates overflows. It is empty if no shape is drawn in the box.
template <class T> KSPixels<T> PartOf(const KSPixels<T>& view, const KSRect<long>& box) {
    const KSPixels<T> part = CanBeDrawn(box) ? view.Part(box) : KSPixels<T>();
    return part.frame.IsValid() ? part.MovedTo({part.frame.left - box.left, part.frame.top - box.top}) : part;
}

KSRect<long> AtOrigin(const KSRect<long>& frame) {
    return {0, 0, frame.PixelWidth() - 1, frame.PixelHeight() - 1};
}

template <class Painter> void FillShape(const Painter& painter, const ks_round_shape& shape) {
    if (painter.Pixels().frame.IsValid())
        shape_fill<Painter>(painter, shape, painter.Pixels().frame).Run();
}

// Paints a shape on a page, or into a mask, whose place is relative to the box.
template <class Painter> void FillEllipse(const Painter& painter, const KSRect<long>& box) {
    if (CanBeDrawn(box))
        FillShape(painter, {AtOrigin(box), static_cast<double>(box.PixelWidth()) / 2,
                            static_cast<double>(box.PixelHeight()) / 2});
}

template <class Painter> void FillRoundRect(const Painter& painter, const KSRect<long>& box, long radius) {
    if (!CanBeDrawn(box))
        return;
    const double half = static_cast<double>(std::min(box.PixelWidth(), box.PixelHeight())) / 2;
    const double r = std::min(static_cast<double>(std::max(radius, 0L)), half);
    FillShape(painter, {AtOrigin(box), r, r});
}

// Returns `value` + `by`, or the end of the range of long.
long Saturated(long value, long by) {
    long sum;
    if (__builtin_add_overflow(value, by, &sum))
        return by < 0 ? std::numeric_limits<long>::min() : std::numeric_limits<long>::max();
    return sum;
}

KSRect<long> Grown(const KSRect<long>& frame, long by) {
    return {Saturated(frame.left, -by), Saturated(frame.top, -by), Saturated(frame.right, by),
            Saturated(frame.bottom, by)};
}

long BlurRadius(long radius) {
    return std::clamp(radius, 0L, 1L << 19);  // sums over the square are exact in doubles
}

// Moves a square over a mask: the sums of its columns are kept from row to row.
class box_blur {
public:
    // The square reaches the mask from all places of `to`, and all places are near (0, 0).
    box_blur(const Mask& mask, const KSPixels<std::uint8_t>& to, long radius)
        : _mask(mask.Part(
              {to.frame.left - radius, mask.frame.top, to.frame.right + radius, mask.frame.bottom})),
          _to(to),
          _radius(radius),
          _sums(static_cast<std::size_t>(_mask.frame.PixelWidth())) {}

    void Run() {
        const auto side = static_cast<double>(2 * _radius + 1);
        for (long y = _to.frame.top - _radius; y < _to.frame.top + _radius; y++)
            Slide(y, _mask.frame.top - 1);
        for (long y = _to.frame.top; y <= _to.frame.bottom; y++) {
            Slide(y + _radius, y - _radius - 1);
            StoreRow(_to.At(_to.frame.left, y), side * side);
        }
    }

private:
    // Takes a row in, and another one out, where the mask has them.
    void Slide(long in, long out) {
        const auto row = [this](long y) {
            return y >= _mask.frame.top && y <= _mask.frame.bottom ? _mask.At(_mask.frame.left, y) : nullptr;
        };
        ks_bitmaptools::ActiveFunctions().slide(_sums.data(), row(in), row(out), std::ssize(_sums));
    }

    // A quarter is added to the sums, which are integers, so that the products' errors do not matter.
    void StoreRow(std::uint8_t* items, double area) const {
        const double share = 1 / area, more = area / 2 + 0.25;
        const long count = std::ssize(_sums), width = _to.frame.PixelWidth();
        const long shift = _to.frame.left - _mask.frame.left;
        const auto sum_at = [&](long column) -> std::int64_t {
            return column >= 0 && column < count ? _sums[static_cast<std::size_t>(column)] : 0;
        };
        std::int64_t sum = 0;
        for (long column = std::max(shift - _radius, 0L); column < std::min(shift + _radius, count); column++)
            sum += sum_at(column);
        for (long i = 0; i < width; i++) {
            sum += sum_at(shift + i + _radius);
            items[i] = static_cast<std::uint8_t>((static_cast<double>(sum) + more) * share);
            sum -= sum_at(shift + i - _radius);
        }
    }

    Mask _mask;
    KSPixels<std::uint8_t> _to;
    long _radius;
    std::vector<std::uint32_t> _sums;
};

}  // namespace

void ks_compose_mask(KSPixels<std::uint32_t> page, KSPixels<const std::uint8_t> mask, ks_color color,
                     ks_composition_mode mode, std::uint32_t opacity) {
    const coverage_painter painter(page, color, mode, opacity);
    const KSRect<long> both = page.Part(mask.Part(page.frame).frame).frame;
    if (!both.IsValid())
        return;
    const long width = both.PixelWidth(), height = both.PixelHeight();
    for (long j = 0; j < height; j++)
        for (long i = 0; i < width; i += kRun)
            painter.Paint(both.left + i, both.top + j, mask.At(both.left + i, both.top + j),
                          std::min(kRun, width - i));
}

void ks_fill_ellipse(KSPixels<std::uint32_t> page, const KSRect<long>& box, ks_color color,
                     ks_composition_mode mode, std::uint32_t opacity) {
    FillEllipse(coverage_painter(PartOf(page, box), color, mode, opacity), box);
}

void ks_fill_round_rect(KSPixels<std::uint32_t> page, const KSRect<long>& box, long radius, ks_color color,
                        ks_composition_mode mode, std::uint32_t opacity) {
    FillRoundRect(coverage_painter(PartOf(page, box), color, mode, opacity), box, radius);
}

void ks_blur(KSPixels<const std::uint8_t> mask, KSPixels<std::uint8_t> to, long radius) {
    radius = BlurRadius(radius);
    to = to.Part(to.frame);
    if (!to.frame.IsValid())
        return;
    std::optional<box_blur> blur;
    if (mask.first && mask.frame.IsValid()) {
        const KSPixels<std::uint8_t> reached = to.Part(Grown(mask.frame, radius));
        if (reached.frame.IsValid())
            blur.emplace(
                mask.MovedTo({0, 0}),
                reached.MovedTo({reached.frame.left - mask.frame.left, reached.frame.top - mask.frame.top}),
                radius);
    }
    const long width = to.frame.PixelWidth(), height = to.frame.PixelHeight();
    for (long y = 0; y < height; y++)
        std::memset(to.first + y * to.row_length, 0, static_cast<std::size_t>(width));
    if (blur)
        blur->Run();
}

KSMask::KSMask(const KSRect<long>& frame_) : frame(frame_) {
    const long width = frame.PixelWidth(), height = frame.PixelHeight();
    long size;
    if (!frame.IsValid())
        return;
    if (width <= 0 || height <= 0 || __builtin_mul_overflow(width, height, &size))
        throw std::bad_alloc();
    bytes.resize(static_cast<std::size_t>(size));
}

KSMask KSMask::Ellipse(const KSRect<long>& box) {
    KSMask mask(box);
    FillEllipse(coverage_store(PartOf(mask.Items(), box)), box);
    return mask;
}

KSMask KSMask::RoundRect(const KSRect<long>& box, long radius) {
    KSMask mask(box);
    FillRoundRect(coverage_store(PartOf(mask.Items(), box)), box, radius);
    return mask;
}

KSMask KSMask::OfAlpha(KSPixels<const std::uint32_t> pixels) {
    KSMask mask(pixels.frame);
    for (std::size_t i = 0; i < mask.bytes.size(); i++) {
        const auto width = static_cast<std::size_t>(pixels.frame.PixelWidth());
        const auto y = static_cast<std::ptrdiff_t>(i / width);
        mask.bytes[i] = static_cast<std::uint8_t>(
            pixels.first[y * pixels.row_length + static_cast<std::ptrdiff_t>(i % width)] >> 24);
    }
    return mask;
}

KSMask KSMask::Blurred(long radius) const {
    radius = BlurRadius(radius);
    KSMask blurred(frame.IsValid() ? Grown(frame, radius) : frame);
    ks_blur(*this, blurred, radius);
    return blurred;
}
