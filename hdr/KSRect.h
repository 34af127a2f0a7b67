// SPDX-License-Identifier: MIT
// A rectangle whose four coordinates are inclusive.
#pragma once

#include <cstdio>
#include <type_traits>

// It holds the columns left to right and the rows top to bottom, so its width in pixels is right - left + 1.
// With left > right or top > bottom it is invalid and holds nothing; the default rectangle is the invalid one
// (1, 1, -1, -1). `T` is long for frames of pixels. A width or height that does not fit an integer T wraps
// around.
template <class T> struct KSRect {
    T left = 1;
    T top = 1;
    T right = -1;
    T bottom = -1;

    constexpr KSRect() = default;
    constexpr KSRect(T left_, T top_, T right_, T bottom_)
        : left(left_), top(top_), right(right_), bottom(bottom_) {}

    constexpr bool IsValid() const { return left <= right && top <= bottom; }
    constexpr T PixelWidth() const { return Extent(left, right); }
    constexpr T PixelHeight() const { return Extent(top, bottom); }

    // Writes one line with the rectangle to standard output, after `label` if there is one. The line of an
    // invalid rectangle starts with "Invalid ".
    void PrintToStream(const char* label = nullptr) const;

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
