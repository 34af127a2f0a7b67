// SPDX-License-Identifier: MIT
// Images in guarded arrays, and the comparison of an operation with its reference at every level.
#pragma once

#include "bitmaptools/KSBitmapTools.h"
#include "tests/reference/sampling.h"
#include "tests/support/guarded_array.h"
#include "tests/support/levels.h"
#include "tests/support/noise.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

using reference::Word;

// Returns a size with many small ones, and some around the widths of vectors and blocks.
inline long Size(Noise& noise) {
    const long bounds[][2] = {{1, 3}, {60, 70}, {120, 150}, {1, 40}, {1, 40}, {1, 40}};
    const auto& [least, most] = bounds[noise.In(0, 5)];
    return noise.In(least, most);
}

// An image in a guarded array that ends with the last pixel of its last row.
struct TestImage {
    long width, height, row_length;
    GuardedArray<Word> array;

    // Of any row length unless one is given. Seeds that follow one another take the array's ends in turn.
    TestImage(Noise& noise, long width_, long height_, long row_length_ = -1)
        : width(width_),
          height(height_),
          row_length(row_length_ >= 0 ? row_length_ : width + (noise.OneIn(2) ? 0 : noise.In(1, 9))),
          array(static_cast<std::size_t>((height - 1) * row_length + width),
                noise.Seed() % 2 ? Against::kFront : Against::kBack) {
        // Of rows that lie far apart only the words behind the pixels.
        for (long y = 0; y < (row_length > 0 ? height : 1); ++y) {
            const auto row = array.Items().subspan(static_cast<std::size_t>(y * row_length));
            const auto length =
                static_cast<std::size_t>(row_length > 0 ? std::min(row_length, width + 9) : width);
            noise.Paint(row.first(std::min(row.size(), length)));
        }
    }
};

// Expects `call<Tools>(bilinear, source, destination)` to store with KSBitmapTools what it stores with the
// reference, in both qualities, on every level and throughout the destination's array.
template <class Call>
void ExpectLikeReference(Noise& noise, TestImage& source, TestImage& destination, Call call) {
    const auto items = destination.array.Items();
    noise.Paint(items);
    const std::vector<Word> before(items.begin(), items.end());
    source.array.SetWritable(false);
    for (const bool bilinear : {false, true}) {
        std::vector<Word> want = before;
        call.template operator()<reference::BitmapTools>(bilinear, source.array.Items().data(), want.data());
        for (const Level level : Levels()) {
            const ScopedLevel held(level);
            std::ranges::copy(before, items.begin());
            call.template operator()<KSBitmapTools>(bilinear, source.array.Items().data(), items.data());
            const long at = std::ranges::mismatch(items, want).in1 - items.begin();
            if (at != std::ssize(want))
                ADD_FAILURE() << (bilinear ? "bilinear" : "plain") << std::hex << ": want " << want[at]
                              << ", got " << items[at] << std::dec << ", seed " << noise.Seed() << ", "
                              << NameOf(level) << ", word " << at << " of " << destination.width << " x "
                              << destination.height << ", rows of " << destination.row_length;
        }
    }
    source.array.SetWritable(true);
}
