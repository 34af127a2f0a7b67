// SPDX-License-Identifier: MIT
// Rows, bounds and memory of bitmaps.
#include "kits/BBitmap.h"

#include <gtest/gtest.h>

#include <new>

namespace {

TEST(Bitmap, HoldsAllColumnsAndRowsFromZeroOn) {
    const struct {
        BRect bounds;
        std::int32_t bytes_per_row, rows;
    } kBitmaps[] = {
        {{0, 0, 63, 31}, 256, 32},       {{5, 5, 63.9F, 31.9F}, 256, 32},
        {{-5, -7, 3, 2}, 36, 10},        {{-9, -9, -3, -3}, 28, 7},
        {{-0.5F, 0, -0.5F, 0.5F}, 4, 1}, {{0, 0, 0, 0}, 4, 1},
        {{0, 0, -1, 5}, 0, 0},           {{9, 0, 3, 5}, 0, 0},
    };
    for (const auto& [bounds, bytes_per_row, rows] : kBitmaps) {
        const BBitmap bitmap(bounds, B_RGB32, true, true);
        EXPECT_EQ(bitmap.Bounds(), bounds);
        EXPECT_EQ(bitmap.BytesPerRow(), bytes_per_row) << bounds.right;
        EXPECT_EQ(bitmap.BitsLength(), bytes_per_row * rows) << bounds.right;
        EXPECT_EQ(bitmap.Bits() == nullptr, rows == 0);
    }
}

TEST(Bitmap, ThrowsForWhatNoMemoryHolds) {
    EXPECT_THROW(BBitmap({0, 0, 1e30F, 0}, B_RGB32), std::bad_alloc);
    EXPECT_THROW(BBitmap({0, 0, 32767, 16384}, B_RGB32), std::bad_alloc);
    EXPECT_THROW(BBitmap({1e9F, 0, 1e9F, 0}, B_RGB32), std::bad_alloc);
}

}  // namespace
