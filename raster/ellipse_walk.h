// SPDX-License-Identifier: MIT
// The walk along one quadrant of an ellipse, which can be entered at any row or column.
#pragma once

#include <algorithm>
#include <cmath>

// The midpoint algorithm with two decision variables, for radii a (across) and b (down) of 0 or more. The
// walk starts at (a, 0). In its first part y grows by 1 with every step, in its second part x shrinks by 1.
//
// With f(x, y) = b*b*x*x + a*a*y*y - a*a*b*b, which is negative inside the ellipse, the decision variables
// are
//     d1 = 2 * f(x - 1/2, y + 1)   (first part: x shrinks too where this is not negative)
//     d2 = 2 * f(x - 1, y + 1/2)   (negative in the first part; second part: y grows where it is negative)
// rounded down, which does not change their signs. So they depend only on the place, not on the way to it.
// The walk passes through the pixel nearest to the ellipse in each row of the first part and in each column
// of the second, and can start there. The one exception is the pixel where the second part begins, which may
// be farther out.
//
// Number has to hold 4 * a * a * b * b: long for radii up to kSmall, 128 bits for any others up to 2^31.
template <class Number> class ks_ellipse_walk {
public:
    ks_ellipse_walk(long a, long b) : _a(a), _b(b), _a2(_a * _a), _b2(_b * _b) { Enter(a, 0); }

    long X() const { return _x; }
    long Y() const { return _y; }
    bool InFirstPart() const { return _d2 < 0; }

    // The steps use masks, all ones or 0, where branches would be hard to predict.
    void StepInFirstPart() {
        const Number inwards = -static_cast<Number>(_d1 >= 0);
        _y++;
        _x += static_cast<long>(inwards);
        _t9 += 4 * _a2;
        _t8 -= 4 * _b2 & inwards;
        _d1 += _t9 + 2 * _a2 - (_t8 & inwards);
        _d2 += _t9 + ((2 * _b2 - _t8) & inwards);
    }

    void StepInSecondPart() {
        const Number outwards = -static_cast<Number>(_d2 < 0);
        _x--;
        _y -= static_cast<long>(outwards);
        _t8 -= 4 * _b2;
        _t9 += 4 * _a2 & outwards;
        _d2 += (_t9 & outwards) + 2 * _b2 - _t8;
    }

    // Goes on in the first part up to row `y`, or to the start of the second part if that comes first.
    void SkipToRow(long y) {
        if (y <= _y || !InFirstPart())
            return;
        const long safe = std::min(y, LastSafeRow());
        if (safe > _y)
            Enter(NearestColumn(safe), safe);
        while (_y < y && InFirstPart())
            StepInFirstPart();
    }

    // Goes on in the second part to column `x`, if that is ahead and 0 or more.
    void SkipToColumn(long x) {
        if (x < _x)
            Enter(x, NearestRow(x));
    }

private:
    Number D1(Number x, Number y) const {
        return 2 * _a2 * (y + 1) * (y + 1) + 2 * _b2 * (x * x - x) - 2 * _a2 * _b2 + (_b2 >> 1);
    }
    Number D2(Number x, Number y) const {
        return 2 * _a2 * (y * y + y) + (_a2 >> 1) + 2 * _b2 * (x - 1) * (x - 1) - 2 * _a2 * _b2;
    }

    void Enter(long x, long y) {
        _x = x;
        _y = y;
        _d1 = D1(x, y);
        _d2 = D2(x, y);
        _t8 = 4 * _b2 * x;
        _t9 = 4 * _a2 * y;
    }

    // Returns a row near the end of the first part that it certainly reaches. The part goes on while the
    // ellipse moves inwards by less than a column per row and is farther than half a column from the axis. A
    // row is reached if that holds half a row before it, so the rounding here does not matter.
    long LastSafeRow() const {
        const auto a = static_cast<double>(_a), b = static_cast<double>(_b);
        const double steep = b / std::hypot(a / b, 1.0), wide = b * std::sqrt(1 - 0.25 / (a * a));
        return static_cast<long>(std::min(steep, wide));
    }

    // Returns the column x of a safe row with the ellipse between x - 1/2 and x + 1/2: the column where the
    // ellipse passes, rounded down, or the next one. The rounding errors are too small to matter.
    long NearestColumn(long y) const {
        const auto a = static_cast<double>(_a), b = static_cast<double>(_b), row = static_cast<double>(y);
        auto x = static_cast<long>(a * std::sqrt((b - row) * (b + row)) / b);
        while (D1(x + 1, y - 1) < 0)
            x++;
        return x;
    }

    // Returns the row y of a column of the second part with the ellipse between y - 1/2 and y + 1/2 in the
    // same way.
    long NearestRow(long x) const {
        const auto a = static_cast<double>(_a), b = static_cast<double>(_b), column = static_cast<double>(x);
        auto y = static_cast<long>(b * std::sqrt((a - column) * (a + column)) / a);
        while (D2(x + 1, y) < 0)
            y++;
        return y;
    }

    Number _a, _b, _a2, _b2;  // the radii and their squares
    long _x, _y;
    Number _d1, _d2;
    Number _t8, _t9;  // 4 * b * b * x and 4 * a * a * y
};
