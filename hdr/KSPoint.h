// SPDX-License-Identifier: MIT
// A point of the plane.
#pragma once

// x grows to the right and y downwards. `T` is long for pixels and double for places between them. The
// default point is (0, 0).
template <class T> struct KSPoint {
    T x{};
    T y{};

    constexpr KSPoint() = default;
    constexpr KSPoint(T x_, T y_) : x(x_), y(y_) {}

    friend constexpr bool operator==(const KSPoint&, const KSPoint&) = default;
};
