// SPDX-License-Identifier: MIT
// Scaling, rotation and transformation of pixel arrays.
#include "bitmaptools/KSBitmapTools.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace {

// Positions are in 1/4096 of a pixel.
constexpr int kFractionBits = 12;
constexpr std::int64_t kOne = 1 << kFractionBits;
constexpr std::int64_t kHalfPixelBack = -2047;
// Rotations and transforms work in a plane shifted by this much, where positions are positive.
constexpr std::int64_t kPlaneShift = 65536;

struct Image {
    const std::uint32_t* pixels;
    std::int64_t width;
    std::int64_t height;
    std::ptrdiff_t row_length;

    bool Contains(std::int64_t x, std::int64_t y) const {
        return x >= 0 && x < width && y >= 0 && y < height;
    }
    const std::uint32_t& At(std::int64_t x, std::int64_t y) const { return pixels[y * row_length + x]; }
    std::uint32_t AtOrClear(std::int64_t x, std::int64_t y) const { return Contains(x, y) ? At(x, y) : 0; }
};

// Copies the pixel at (x, y), in 1/4096 of a pixel, if the image has it.
void CopyNearest(const Image& image, std::int64_t x, std::int64_t y, std::uint32_t& destination) {
    const std::int64_t ix = x >> kFractionBits, iy = y >> kFractionBits;
    if (image.Contains(ix, iy))
        destination = image.At(ix, iy);
}

// Stores the bilinear sample at (x, y), in 1/4096 of a pixel, if at least one of its neighbours is there.
void SampleBilinear(const Image& image, std::int64_t x, std::int64_t y, std::uint32_t& destination) {
    const std::int64_t ix = x >> kFractionBits, iy = y >> kFractionBits;
    if (ix < -1 || iy < -1 || ix >= image.width || iy >= image.height)
        return;
    const auto fx = static_cast<std::uint32_t>(x & (kOne - 1)),
               fy = static_cast<std::uint32_t>(y & (kOne - 1));
    const std::array<std::uint32_t, 4> neighbours = {image.AtOrClear(ix, iy), image.AtOrClear(ix + 1, iy),
                                                     image.AtOrClear(ix, iy + 1),
                                                     image.AtOrClear(ix + 1, iy + 1)};
    const std::array<std::uint32_t, 4> shares = {(4096 - fx) * (4096 - fy), fx * (4096 - fy),
                                                 (4096 - fx) * fy, fx * fy};
    std::uint32_t sum = 0, red = 0, green = 0, blue = 0;
    for (std::size_t k = 0; k < 4; ++k) {
        const std::uint32_t v = shares[k] * (neighbours[k] >> 24);
        const std::uint32_t weight = (v + (v >> 8) + 1) >> 8;
        sum += weight;
        red += weight * (neighbours[k] >> 16 & 255);
        green += weight * (neighbours[k] >> 8 & 255);
        blue += weight * (neighbours[k] & 255);
    }
    destination = sum ? sum >> 16 << 24 | red / sum << 16 | green / sum << 8 | blue / sum : 0;
}

// What happens to one destination pixel: CopyNearest or SampleBilinear.
using PixelOperation = void (*)(const Image&, std::int64_t x, std::int64_t y, std::uint32_t& destination);

void Scale(std::int32_t source_width, std::int32_t source_height, std::int32_t destination_width,
           std::int32_t destination_height, const std::uint32_t* source, std::uint32_t* destination,
           std::int32_t source_row_length, std::int32_t destination_row_length, std::int64_t start,
           PixelOperation operation) {
    if (source_width <= 0 || source_height <= 0 || destination_width <= 0 || destination_height <= 0)
        return;
    const Image image = {source, source_width, source_height, source_row_length};
    const std::int64_t step_x = source_width * kOne / destination_width;
    const std::int64_t step_y = source_height * kOne / destination_height;
    for (std::ptrdiff_t j = 0; j < destination_height; ++j)
        for (std::ptrdiff_t i = 0; i < destination_width; ++i)
            operation(image, start + i * step_x, start + j * step_y,
                      destination[j * destination_row_length + i]);
}

bool FitsPlane(const KSRect<long>& rect) {
    constexpr long least = std::numeric_limits<std::int32_t>::min();
    constexpr long most = std::numeric_limits<std::int32_t>::max();
    return rect.IsValid() && rect.left >= least && rect.top >= least && rect.right <= most &&
           rect.bottom <= most;
}

bool FitsPlane(KSPoint<double> point) {
    constexpr double limit = 0x1p31;
    return std::fabs(point.x) <= limit && std::fabs(point.y) <= limit;
}

KSRect<long> Shifted(const KSRect<long>& rect) {
    return {rect.left + kPlaneShift, rect.top + kPlaneShift, rect.right + kPlaneShift,
            rect.bottom + kPlaneShift};
}

KSPoint<double> Shifted(KSPoint<double> point) {
    return {point.x + kPlaneShift, point.y + kPlaneShift};
}

KSPoint<std::int64_t> FixedPoint(KSPoint<double> point) {
    return {static_cast<std::int64_t>(std::floor(point.x * kOne)),
            static_cast<std::int64_t>(std::floor(point.y * kOne))};
}

void Rotate(KSRect<long> source_rect, KSRect<long> destination_rect, KSPoint<double> centre, double angle,
            const std::uint32_t* source, std::uint32_t* destination, std::uint32_t source_row_length,
            std::uint32_t destination_row_length, PixelOperation operation) {
    if (!FitsPlane(source_rect) || !FitsPlane(destination_rect) || !FitsPlane(centre) ||
        !std::isfinite(angle))
        return;
    source_rect = Shifted(source_rect);
    destination_rect = Shifted(destination_rect);
    centre = Shifted(centre);
    const auto rotated = [&](long x, long y, double by) {
        const double dx = static_cast<double>(x) - centre.x, dy = static_cast<double>(y) - centre.y;
        return KSPoint<double>(centre.x + dx * std::cos(by) + dy * std::sin(by),
                               centre.y + dy * std::cos(by) - dx * std::sin(by));
    };
    const Image image = {source, source_rect.PixelWidth(), source_rect.PixelHeight(), source_row_length};
    const auto top_left = FixedPoint(rotated(source_rect.left, source_rect.top, angle));
    const auto top_right = FixedPoint(rotated(source_rect.right + 1, source_rect.top, angle));
    const auto bottom_left = FixedPoint(rotated(source_rect.left, source_rect.bottom + 1, angle));
    const KSPoint<std::int64_t> column_step((top_right.x - top_left.x) / image.width,
                                            (top_left.y - top_right.y) / image.width);
    const KSPoint<std::int64_t> row_step((top_left.x - bottom_left.x) / image.height,
                                         (bottom_left.y - top_left.y) / image.height);
    const KSPoint<double> first = rotated(destination_rect.left, destination_rect.top, -angle);
    const std::int64_t start_x = static_cast<std::int64_t>(first.x * kOne) - source_rect.left * kOne;
    const std::int64_t start_y = static_cast<std::int64_t>(first.y * kOne) - source_rect.top * kOne;
    for (std::ptrdiff_t j = 0; j < destination_rect.PixelHeight(); ++j)
        for (std::ptrdiff_t i = 0; i < destination_rect.PixelWidth(); ++i)
            operation(image, start_x + j * row_step.x + i * column_step.x,
                      start_y + j * row_step.y + i * column_step.y,
                      destination[j * destination_row_length + i]);
}

struct Quadrilateral {
    KSPoint<double> a, b, c, origin;
    double curvature;  // A, the factor of t squared

    Quadrilateral(KSPoint<double> p0, KSPoint<double> p1, KSPoint<double> p2, KSPoint<double> p3) {
        const bool parallel_x = std::floor(p1.x - p0.x) == std::floor(p2.x - p3.x);
        const bool parallel_y = std::floor(p2.y - p1.y) == std::floor(p3.y - p0.y);
        if (parallel_x)
            p0.x += 0.1;
        if (parallel_y)
            p0.y += 0.1;
        a = {p1.x - p2.x + p3.x - p0.x, p1.y - p2.y + p3.y - p0.y};
        b = {p2.x - p3.x, p2.y - p3.y};
        c = {p0.x - p3.x, p0.y - p3.y};
        origin = p3;
        curvature = a.x * b.y - b.x * a.y;
    }

    // Finds the source fraction (t, v) of a position; false unless both lie in [least, most].
    bool Solve(double x, double y, double least, double most, double& t, double& v) const {
        const KSPoint<double>& p3 = origin;
        const double bq = a.y * x - a.x * y + a.x * p3.y - p3.x * a.y + c.x * b.y - c.y * b.x;
        const double cq = c.y * x - c.x * y + c.x * p3.y - p3.x * c.y;
        const double d = bq * bq - 4 * curvature * cq;
        if (d < 0)
            return false;
        t = (std::sqrt(d) - bq) / (2 * curvature);
        if (!(t >= least && t <= most))
            return false;
        const double divisor = a.x * t + c.x;
        v = (x - b.x * t - p3.x) / divisor;
        return divisor != 0 && v >= least && v <= most;
    }
};

template <class Operation>
void Transform(const KSRect<long>& destination_rect, const Quadrilateral& quad, double least, double most,
               std::uint32_t* destination, std::uint32_t destination_row_length, Operation operation) {
    if (quad.curvature == 0)
        return;
    const KSRect<long> rect = Shifted(destination_rect);
    for (long y = rect.top; y <= rect.bottom; ++y)
        for (long x = rect.left; x <= rect.right; ++x) {
            double t, v;
            if (quad.Solve(static_cast<double>(x), static_cast<double>(y), least, most, t, v))
                operation(
                    t, v,
                    destination[(y - rect.top) * std::ptrdiff_t{destination_row_length} + (x - rect.left)]);
        }
}

}  // namespace

void KSBitmapTools::ScalePlain(std::int32_t source_width, std::int32_t source_height,
                               std::int32_t destination_width, std::int32_t destination_height,
                               const std::uint32_t* source, std::uint32_t* destination,
                               std::int32_t source_row_length, std::int32_t destination_row_length) {
    Scale(source_width, source_height, destination_width, destination_height, source, destination,
          source_row_length, destination_row_length, 0, CopyNearest);
}

void KSBitmapTools::ScaleBiLin(std::int32_t source_width, std::int32_t source_height,
                               std::int32_t destination_width, std::int32_t destination_height,
                               const std::uint32_t* source, std::uint32_t* destination,
                               std::int32_t source_row_length, std::int32_t destination_row_length) {
    Scale(source_width, source_height, destination_width, destination_height, source, destination,
          source_row_length, destination_row_length, kHalfPixelBack, SampleBilinear);
}

void KSBitmapTools::RotatePlain(KSRect<long> source_rect, KSRect<long> destination_rect,
                                KSPoint<double> centre, double angle, const std::uint32_t* source,
                                std::uint32_t* destination, std::uint32_t source_row_length,
                                std::uint32_t destination_row_length) {
    Rotate(source_rect, destination_rect, centre, angle, source, destination, source_row_length,
           destination_row_length, CopyNearest);
}

void KSBitmapTools::RotateBiLin(KSRect<long> source_rect, KSRect<long> destination_rect,
                                KSPoint<double> centre, double angle, const std::uint32_t* source,
                                std::uint32_t* destination, std::uint32_t source_row_length,
                                std::uint32_t destination_row_length) {
    Rotate(source_rect, destination_rect, centre, angle, source, destination, source_row_length,
           destination_row_length, SampleBilinear);
}

void KSBitmapTools::TransformPlain(KSRect<long> source_rect, KSPoint<double> top_left,
                                   KSPoint<double> top_right, KSPoint<double> bottom_right,
                                   KSPoint<double> bottom_left, KSRect<long> destination_rect,
                                   const std::uint32_t* source, std::uint32_t* destination,
                                   std::uint32_t source_row_length, std::uint32_t destination_row_length) {
    if (!FitsPlane(source_rect) || !FitsPlane(destination_rect))
        return;
    const Image image = {source, source_rect.PixelWidth(), source_rect.PixelHeight(), source_row_length};
    const Quadrilateral quad(Shifted(top_left), Shifted(top_right), Shifted(bottom_right),
                             Shifted(bottom_left));
    const auto index = [](double position, std::int64_t size) {
        const auto i = static_cast<std::int64_t>(position);
        return i < size ? i : size - 1;
    };
    Transform(destination_rect, quad, 0, 1, destination, destination_row_length,
              [&](double t, double v, std::uint32_t& pixel) {
                  pixel = image.At(index(t * static_cast<double>(image.width), image.width),
                                   index((1 - v) * static_cast<double>(image.height), image.height));
              });
}

void KSBitmapTools::TransformBiLin(KSRect<long> source_rect, KSPoint<double> top_left,
                                   KSPoint<double> top_right, KSPoint<double> bottom_right,
                                   KSPoint<double> bottom_left, KSRect<long> destination_rect,
                                   const std::uint32_t* source, std::uint32_t* destination,
                                   std::uint32_t source_row_length, std::uint32_t destination_row_length) {
    if (!FitsPlane(source_rect) || !FitsPlane(destination_rect))
        return;
    const Image image = {source, source_rect.PixelWidth(), source_rect.PixelHeight(), source_row_length};
    const Quadrilateral quad(Shifted(top_left), Shifted(top_right), Shifted(bottom_right),
                             Shifted(bottom_left));
    Transform(destination_rect, quad, -0.1, 1.1, destination, destination_row_length,
              [&](double t, double v, std::uint32_t& pixel) {
                  const double x = t * static_cast<double>(image.width) * kOne;
                  const double y = (1 - v) * static_cast<double>(image.height) * kOne;
                  SampleBilinear(image, static_cast<std::int64_t>(x) + kHalfPixelBack,
                                 static_cast<std::int64_t>(y) + kHalfPixelBack, pixel);
              });
}
