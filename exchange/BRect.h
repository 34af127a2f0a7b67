// SPDX-License-Identifier: MIT
// The platform's rectangle.
#pragma once

// It holds the columns left to right and the rows top to bottom of a bitmap, both ends included. Width and
// Height are right - left and bottom - top: one less than the number of columns and rows. With left > right
// or top > bottom the rectangle is invalid; the default one is (0, 0, -1, -1).
struct BRect {
    float left = 0;
    float top = 0;
    float right = -1;
    float bottom = -1;

    constexpr BRect() = default;
    constexpr BRect(float left_, float top_, float right_, float bottom_)
        : left(left_), top(top_), right(right_), bottom(bottom_) {}

    constexpr bool IsValid() const { return left <= right && top <= bottom; }
    constexpr float Width() const { return right - left; }
    constexpr float Height() const { return bottom - top; }

    friend constexpr bool operator==(const BRect&, const BRect&) = default;
};
