// SPDX-License-Identifier: MIT
#include "bitmaptools/ks_resample.h"

#include "bitmaptools/ks_premultiply.h"
#include "bitmaptools/levels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

using namespace ks_bitmaptools;

namespace {

SourcePixels SourceOf(const KSPixels<const std::uint32_t>& view) {
    return {view.first, view.frame.PixelWidth(), view.frame.PixelHeight(), view.row_length};
}

DestinationPixels DestinationOf(const KSPixels<std::uint32_t>& view) {
    return {view.first, view.frame.PixelWidth(), view.frame.PixelHeight(), view.row_length};
}

bool HasPixels(const KSPixels<const std::uint32_t>& view) {
    return view.first && view.frame.IsValid();
}

// For reductions whose sums the vectors cannot hold: all in doubles, which are exact up to 2^53.
std::uint32_t ReducedPixel(const SourcePixels& source, const Reduction& r, std::int64_t i, std::int64_t j) {
    double sums[4] = {};
    const std::int64_t left = (r.first_column + i) * r.columns, right = left + r.columns;
    const std::int64_t top = (r.first_row + j) * r.rows, bottom = top + r.rows;
    for (std::int64_t y = top / r.row_weight; y * r.row_weight < bottom; ++y)
        for (std::int64_t x = left / r.column_weight; x * r.column_weight < right; ++x) {
            const std::int64_t width =
                std::min(right, (x + 1) * r.column_weight) - std::max(left, x * r.column_weight);
            const std::int64_t height =
                std::min(bottom, (y + 1) * r.row_weight) - std::max(top, y * r.row_weight);
            const std::uint32_t pixel = source.words[y * source.row_length + x];
            const double weight = static_cast<double>(width * height) * (pixel >> 24);
            for (int c = 0; c < 3; ++c)
                sums[c] += weight * (pixel >> 8 * c & 255);
            sums[3] += weight;
        }
    if (sums[3] == 0)
        return 0;
    std::uint32_t pixel = 0;
    for (int c = 0; c < 4; ++c)
        pixel |= static_cast<std::uint32_t>(sums[c] / (c < 3 ? sums[3] : r.total) + 0.5) << 8 * c;
    return pixel >> 24 == 0 ? 0 : pixel;
}

constexpr double kFarthest = 0x1p31;

bool IsUsable(const ks_quadrilateral& corners, const KSRect<long>& rect) {
    const auto is_near = [](double d) { return std::fabs(d) <= kFarthest; };
    const auto is_close = [](long l) { return l >= -(1L << 31) && l <= 1L << 31; };
    return std::all_of(corners.begin(), corners.end(),
                       [&](const auto& p) { return is_near(p.x) && is_near(p.y); }) &&
           rect.IsValid() && is_close(rect.left) && is_close(rect.top) && is_close(rect.right) &&
           is_close(rect.bottom);
}

// Returns twice the area of a triangle.
double AreaOf(const KSPoint<double>& a, const KSPoint<double>& b, const KSPoint<double>& c) {
    return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

// Sets the map of the unit square onto a quadrilateral: Heckbert, "Fundamentals of Texture Mapping and Image
// Warping" (1989), 2.2.3, multiplied by the determinant there so that nothing is divided. Returns whether no
// three corners lie on a line.
bool MapUnitSquare(const ks_quadrilateral& p, double (&m)[9]) {
    const double determinant = AreaOf(p[2], p[1], p[3]);
    for (std::size_t k = 0; k < 4; ++k)
        if (AreaOf(p[k], p[(k + 1) % 4], p[(k + 2) % 4]) == 0)
            return false;
    const KSPoint<double> side1(p[1].x - p[2].x, p[1].y - p[2].y), side2(p[3].x - p[2].x, p[3].y - p[2].y);
    const KSPoint<double> skew(p[0].x - p[1].x + (p[2].x - p[3].x), p[0].y - p[1].y + (p[2].y - p[3].y));
    const double g = (skew.x * side2.y - side2.x * skew.y) / determinant;
    const double h = (side1.x * skew.y - skew.x * side1.y) / determinant;
    const double result[9] = {p[1].x - p[0].x + g * p[1].x,
                              p[3].x - p[0].x + h * p[3].x,
                              p[0].x,
                              p[1].y - p[0].y + g * p[1].y,
                              p[3].y - p[0].y + h * p[3].y,
                              p[0].y,
                              g,
                              h,
                              1};
    std::copy_n(result, 9, m);
    return true;
}

// Returns a map unless it has become so large or so small that it maps nothing.
ks_projection Checked(const ks_projection& map) {
    return std::all_of(map.m, map.m + 9, [](double d) { return std::isfinite(d); }) ? map : ks_projection();
}

void Project(const KSPixels<const std::uint32_t>& source, const ks_projection& projection,
             const KSPixels<std::uint32_t>& destination,
             void (*project)(const SourcePixels&, const DestinationPixels&, const Projection&)) {
    if (!HasPixels(source) || !HasPixels(destination))
        return;
    Projection map = {};
    const double left = static_cast<double>(source.frame.left), top = static_cast<double>(source.frame.top);
    for (int k = 0; k < 3; ++k) {
        map.m[k] = projection.m[k] - left * projection.m[6 + k];
        map.m[3 + k] = projection.m[3 + k] - top * projection.m[6 + k];
        map.m[6 + k] = projection.m[6 + k];
    }
    map.left = static_cast<double>(destination.frame.left);
    map.top = static_cast<double>(destination.frame.top);
    project(SourceOf(source), DestinationOf(destination), map);
}

void Convert(KSPixels<const std::uint32_t> from, KSPixels<std::uint32_t> to,
             void (*convert)(std::uint32_t* to, const std::uint32_t* from, std::int64_t count)) {
    to = to.Part(from.frame);
    from = from.Part(to.frame);
    const long width = from.frame.PixelWidth(), height = HasPixels(from) ? from.frame.PixelHeight() : 0;
    for (long y = 0; y < height; y++)
        convert(to.first + y * to.row_length, from.first + y * from.row_length, width);
}

}  // namespace

void ks_reduce(KSPixels<const std::uint32_t> source, const KSRect<long>& whole,
               KSPixels<std::uint32_t> destination) {
    constexpr long kMostPixels = 1L << 31;
    destination = destination.Part(whole);
    if (!HasPixels(source) || !HasPixels(destination))
        return;
    const long width = source.frame.PixelWidth(), height = source.frame.PixelHeight();
    const long to_width = whole.PixelWidth(), to_height = whole.PixelHeight();
    if (to_width <= 0 || to_width > width || to_height <= 0 || to_height > height ||
        height > kMostPixels / width)
        return;
    const long across = std::gcd(width, to_width), down = std::gcd(height, to_height);
    const Reduction reduction = {.columns = width / across,
                                 .column_weight = to_width / across,
                                 .first_column = destination.frame.left - whole.left,
                                 .rows = height / down,
                                 .row_weight = to_height / down,
                                 .first_row = destination.frame.top - whole.top,
                                 .total = static_cast<double>(width / across * (height / down))};
    const SourcePixels from = SourceOf(source);
    const DestinationPixels to = DestinationOf(destination);
    if (reduction.rows <= kMostRows && reduction.columns <= kMostCovered * reduction.column_weight) {
        ActiveFunctions().reduce(from, to, reduction);
        return;
    }
    for (std::int64_t j = 0; j < to.height; ++j)
        for (std::int64_t i = 0; i < to.width; ++i)
            to.words[j * to.row_length + i] = ReducedPixel(from, reduction, i, j);
}

ks_projection ks_projection::FromQuadrilateral(const ks_quadrilateral& corners, const KSRect<long>& rect) {
    ks_projection map;
    double unit[9];
    if (!IsUsable(corners, rect) || !MapUnitSquare(corners, unit))
        return map;
    const double width = static_cast<double>(rect.PixelWidth()),
                 height = static_cast<double>(rect.PixelHeight());
    const double left = static_cast<double>(rect.left), top = static_cast<double>(rect.top);
    for (int k = 0; k < 9; k += 3) {
        map.m[k] = unit[k] / width;
        map.m[k + 1] = unit[k + 1] / height;
        map.m[k + 2] = unit[k + 2] - map.m[k] * left - map.m[k + 1] * top;
    }
    return Checked(map);
}

ks_projection ks_projection::ToQuadrilateral(const KSRect<long>& rect, const ks_quadrilateral& corners) {
    ks_projection map;
    double unit[9];
    if (!IsUsable(corners, rect) || !MapUnitSquare(corners, unit))
        return map;
    // The inverse, by the adjoint. The determinant's sign makes W positive within the quadrilateral.
    const auto minor = [&](int a, int b, int c, int d) { return unit[a] * unit[b] - unit[c] * unit[d]; };
    double inverse[9] = {minor(4, 8, 5, 7), minor(2, 7, 1, 8), minor(1, 5, 2, 4),
                         minor(5, 6, 3, 8), minor(0, 8, 2, 6), minor(2, 3, 0, 5),
                         minor(3, 7, 4, 6), minor(1, 6, 0, 7), minor(0, 4, 1, 3)};
    const double determinant = unit[0] * inverse[0] + unit[1] * inverse[3] + unit[2] * inverse[6];
    const double sign = determinant < 0 ? -1 : 1;
    const double width = static_cast<double>(rect.PixelWidth()),
                 height = static_cast<double>(rect.PixelHeight());
    const double left = static_cast<double>(rect.left), top = static_cast<double>(rect.top);
    for (int k = 0; k < 3; ++k) {
        map.m[k] = sign * (width * inverse[k] + left * inverse[6 + k]);
        map.m[3 + k] = sign * (height * inverse[3 + k] + top * inverse[6 + k]);
        map.m[6 + k] = sign * inverse[6 + k];
    }
    return Checked(map);
}

KSPoint<double> ks_projection::SourceOf(KSPoint<double> place) const {
    const double w = m[6] * place.x + (m[7] * place.y + m[8]);
    if (!(w > 0))
        return {std::nan(""), std::nan("")};
    return {(m[0] * place.x + (m[1] * place.y + m[2])) / w, (m[3] * place.x + (m[4] * place.y + m[5])) / w};
}

void ks_project_plain(KSPixels<const std::uint32_t> source, const ks_projection& projection,
                      KSPixels<std::uint32_t> destination) {
    Project(source, projection, destination, ActiveFunctions().project_plain);
}

void ks_project_bilinear(KSPixels<const std::uint32_t> source, const ks_projection& projection,
                         KSPixels<std::uint32_t> destination) {
    Project(source, projection, destination, ActiveFunctions().project_bilinear);
}

void ks_premultiply(KSPixels<const std::uint32_t> from, KSPixels<std::uint32_t> to) {
    Convert(from, to, ActiveFunctions().premultiply);
}

void ks_unpremultiply(KSPixels<const std::uint32_t> from, KSPixels<std::uint32_t> to) {
    Convert(from, to, ActiveFunctions().unpremultiply);
}
