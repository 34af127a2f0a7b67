// SPDX-License-Identifier: MIT
// The platform's rectangle: four inclusive coordinates in single precision.
#pragma once

// A rectangle with left > right or top > bottom is invalid; the default one is (0, 0, -1, -1). Of bitmaps and
// views it holds the columns left to right and the rows top to bottom, both ends included.
struct BRect {
    float left = 0;     // the first column
    float top = 0;      // the first row
    float right = -1;   // the last column
    float bottom = -1;  // the last row

    // Makes the invalid rectangle, or a given one.
    constexpr BRect() = default;
    constexpr BRect(float left_, float top_, float right_, float bottom_)
        : left(left_), top(top_), right(right_), bottom(bottom_) {}

    // Returns whether the rectangle holds anything.
    constexpr bool IsValid() const { return left <= right && top <= bottom; }
    // Returns right - left: one less than the number of columns.
    constexpr float Width() const { return right - left; }
    constexpr float Height() const { return bottom - top; }

    // Compares all four coordinates exactly.
    friend constexpr bool operator==(const BRect&, const BRect&) = default;
};
