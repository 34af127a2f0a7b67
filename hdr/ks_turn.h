// SPDX-License-Identifier: MIT
// The cosine and sine of an angle, the same on every processor.
//
// Private to the library.
#pragma once

#include <cmath>

// Of the functions for double, mathematical libraries have forms with and without fused multiply-adds, whose
// last bits differ, and take what the processor has. The functions for long double are the same everywhere,
// and more exact than a double by enough that rounding hides their last bits.
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
