// SPDX-License-Identifier: MIT
// A point of the plane: x to the right, y downwards.
#pragma once

template <class T> struct KSPoint {
    T x{};
    T y{};

    constexpr KSPoint() = default;
    constexpr KSPoint(T x_, T y_) : x(x_), y(y_) {}

    friend constexpr bool operator==(const KSPoint&, const KSPoint&) = default;
};
