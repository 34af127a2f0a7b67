// SPDX-License-Identifier: MIT
// A point of the plane: x to the right, y downwards.
#pragma once

// `T` is long for pixels and double for places between them.
template <class T> struct KSPoint {
    T x{};  // to the right
    T y{};  // downwards

    // Makes the point (0, 0), or a given one.
    constexpr KSPoint() = default;
    constexpr KSPoint(T x_, T y_) : x(x_), y(y_) {}

    // Compares both coordinates exactly.
    friend constexpr bool operator==(const KSPoint&, const KSPoint&) = default;
};
