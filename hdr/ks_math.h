// SPDX-License-Identifier: MIT
// MIN, MAX and NORM. The parentheses keep macros of these names in system headers from replacing them.
#pragma once

// Returns the smaller of two values; the second on a tie.
template <class T> constexpr T(MIN)(T a, T b) {
    return a < b ? a : b;
}

// Returns the larger of two values; the second on a tie.
template <class T> constexpr T(MAX)(T a, T b) {
    return a > b ? a : b;
}

// Orders two values in place so that `a` is not greater than `b`.
constexpr void(NORM)(long& a, long& b) {
    if (a > b) {
        const long larger = a;
        a = b;
        b = larger;
    }
}
