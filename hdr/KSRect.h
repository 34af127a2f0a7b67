// SPDX-License-Identifier: MIT
// A rectangle whose four coordinates are inclusive: it holds right - left + 1 columns.
#pragma once

#include <cstdio>
#include <type_traits>

// `T` is long for frames of pixels. A rectangle with left > right or top > bottom is invalid; the default
// one is the invalid rectangle (1, 1, -1, -1). A width or height that does not fit an integer T wraps around.
template <class T> struct KSRect {
    T left = 1;     // the first column
    T top = 1;      // the first row
    T right = -1;   // the last column
    T bottom = -1;  // the last row

    // Makes the invalid rectangle, or a given one.
    constexpr KSRect() = default;
    constexpr KSRect(T left_, T top_, T right_, T bottom_)
        : left(left_), top(top_), right(right_), bottom(bottom_) {}

    // Returns whether the rectangle holds anything.
    constexpr bool IsValid() const { return left <= right && top <= bottom; }
    // Returns how many columns, and how many rows, the rectangle holds.
    constexpr T PixelWidth() const { return Extent(left, right); }
    constexpr T PixelHeight() const { return Extent(top, bottom); }

    // Writes the rectangle as one line to standard output, behind `label` if there is one; an invalid one
    // is announced by "Invalid ".
    void PrintToStream(const char* label = nullptr) const;

    // Compares all four coordinates exactly.
    friend constexpr bool operator==(const KSRect&, const KSRect&) = default;

private:
    static constexpr T Extent(T first, T last) {
        if constexpr (std::is_integral_v<T>) {
            using bits = std::make_unsigned_t<T>;
            return static_cast<T>(static_cast<bits>(last) - static_cast<bits>(first) + 1);
        } else {
            return last - first + 1;
        }
    }
};

template <class T> void KSRect<T>::PrintToStream(const char* label) const {
    const double l = static_cast<double>(left), t = static_cast<double>(top);
    const double r = static_cast<double>(right), b = static_cast<double>(bottom);
    if (!IsValid())
        std::printf("Invalid ");
    std::printf("KSRect  %s%sl:%.2f | t:%.2f | r:%.2f | b:%.2f | w:%.2f | h:%.2f\n", label ? label : "",
                label ? " " : "", l, t, r, b, r - l + 1, b - t + 1);
}
