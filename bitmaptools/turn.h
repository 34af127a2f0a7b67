// SPDX-License-Identifier: MIT
// The cosine and sine of an angle, the same on every processor.
#pragma once

#include <cmath>

// The functions of the mathematical library for double give other last bits on processors with fused
// multiply-adds. Those for long double are the same everywhere, and exact enough to be rounded to double.
struct ks_turn {
    double cosine;
    double sine;

    // Returns the turn by an angle in radians.
    static ks_turn By(double angle) {
        const long double exactly = angle;
        return {static_cast<double>(std::cos(exactly)), static_cast<double>(std::sin(exactly))};
    }
    // Returns the turn by the negative angle.
    ks_turn Back() const { return {cosine, -sine}; }
};
