// SPDX-License-Identifier: MIT
// The coverage of ellipses and of boxes with round corners.
#pragma once

#include "hdr/KSRect.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

// A box whose corners are quarters of an ellipse. Rows and columns are counted from the nearest side of the
// box, so that all four corners look the same.
class ks_round_shape {
public:
    // The radii are 0, or at most half the box.
    ks_round_shape(const KSRect<long>& box, double x_radius, double y_radius)
        : _box(box),
          _a(x_radius),
          _b(y_radius),
          _flat_end(_a > 0 ? _a * _a / std::sqrt(_a * _a + _b * _b) : 0) {}

    const KSRect<long>& Box() const { return _box; }

    // How many rows at the top have corners.
    long Rows() const { return static_cast<long>(std::ceil(_b)); }

    // Which columns of a row are covered in part: those before have no coverage, those behind all of it.
    struct edge {
        long first, full;
    };
    edge EdgeOf(long row) const {
        const double low = Inner(_b, row), high = _b - static_cast<double>(row);
        return {static_cast<long>(_a - Across(low)),
                std::min(static_cast<long>(std::ceil(_a - Across(high))), (_box.PixelWidth() + 1) / 2)};
    }

    // Sets the coverage of `count` pixels of a row that has corners, from a column on.
    void Cover(long row, long column, long count, std::uint8_t* coverage) const {
        const double low = Inner(_b, row), high = _b - static_cast<double>(row);
        const double from = Across(high), to = Across(low);
        for (long i = 0; i < count; i++) {
            const double left = Inner(_a, column + i), right = _a - static_cast<double>(column + i);
            const double whole = (right - left) * (high - low);
            const double area = right > left ? Area(left, right, low, high, from, to) : whole;
            coverage[i] =
                whole > 0 ? static_cast<std::uint8_t>(std::clamp(area / whole, 0.0, 1.0) * 255 + 0.5) : 255;
        }
    }

private:
    // The distance of the inner side of a pixel from the centre of the corner's ellipse. A pixel across the
    // centre counts up to it: its other half looks the same.
    static double Inner(double radius, long item) {
        return std::max(radius - static_cast<double>(item) - 1, 0.0);
    }

    // The ellipse at a distance from its centre: x for y, and y for x. The products keep their precision
    // where a large ellipse is almost level.
    double Across(double y) const { return y < _b ? _a / _b * std::sqrt((_b - y) * (_b + y)) : 0; }
    double Along(double x) const { return x < _a ? _b / _a * std::sqrt((_a - x) * (_a + x)) : 0; }

    // The integral of a function by the Gauss-Legendre rule of three points. Over less than a pixel of an
    // ellipse that rises by less than that it is off by less than 1/1000.
    template <class Function> static double Integral(double from, double to, Function function) {
        const double middle = (from + to) / 2, half = (to - from) / 2, away = half * 0.7745966692414834;
        return half / 9 * (5 * (function(middle - away) + function(middle + away)) + 8 * function(middle));
    }

    // The area of the ellipse within left to right and low to high, coordinates from its centre. Between
    // `from` and `to` the outline is between high and low.
    double Area(double left, double right, double low, double high, double from, double to) const {
        const double begin = std::clamp(from, left, right), end = std::clamp(to, left, right);
        const double turn = std::clamp(_flat_end, begin, end);
        double area = (begin - left) * (high - low);
        if (turn > begin)  // falls by less than it goes across
            area += Integral(begin, turn, [this](double x) { return Along(x); }) - low * (turn - begin);
        if (end > turn) {
            const double top = std::clamp(Along(turn), low, high), bottom = std::clamp(Along(end), low, top);
            area += (bottom - low) * (end - turn) +
                    Integral(bottom, top, [this](double y) { return Across(y); }) - turn * (top - bottom);
        }
        return area;
    }

    KSRect<long> _box;
    double _a, _b;
    double _flat_end;  // where the outline slants by 45 degrees
};
