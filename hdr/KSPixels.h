// SPDX-License-Identifier: MIT
// A view of pixels, or of other items, that lie in somebody's memory and have a place in the plane.
#pragma once

#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"

#include <cstddef>
#include <type_traits>

// Rows of items of type `T`, the first of which is the top left one of `frame`. The memory belongs to
// somebody else and has to outlive the view. `row_length` is the distance in items from one row to the next.
// It may be any that keeps rows apart, and is negative where the rows lie bottom up. A frame is at most 2^31
// - 1 items wide and high. A view with an invalid frame has no items; the default one is such.
//
// Pixels are KSPixels<std::uint32_t>, the words of merge/KSMerge.h; coverage is KSPixels<std::uint8_t>. A
// view converts to one that only reads. Threads may work on disjoint parts of one image, each through a view
// of its part.
template <class T> struct KSPixels {
    T* first = nullptr;
    std::ptrdiff_t row_length = 0;
    KSRect<long> frame;

    constexpr KSPixels() = default;
    constexpr KSPixels(T* first_, std::ptrdiff_t row_length_, const KSRect<long>& frame_)
        : first(first_), row_length(row_length_), frame(frame_) {}
    constexpr operator KSPixels<const T>() const requires(!std::is_const_v<T>) {
        return {first, row_length, frame};
    }

    // Returns the place of the item (x, y), which has to lie in the frame.
    constexpr T* At(long x, long y) const { return first + (y - frame.top) * row_length + (x - frame.left); }

    // Returns the view of the items that lie in `part` too; they keep their places.
    constexpr KSPixels Part(const KSRect<long>& part) const {
        const KSRect<long> both(frame.left > part.left ? frame.left : part.left,
                                frame.top > part.top ? frame.top : part.top,
                                frame.right < part.right ? frame.right : part.right,
                                frame.bottom < part.bottom ? frame.bottom : part.bottom);
        return first && frame.IsValid() && both.IsValid()
                   ? KSPixels(At(both.left, both.top), row_length, both)
                   : KSPixels();
    }

    // Returns the view of the same items whose top left one is at `place`; an empty view if it would leave
    // the range of long.
    constexpr KSPixels MovedTo(KSPoint<long> place) const {
        KSRect<long> moved(place.x, place.y, 0, 0);
        if (!frame.IsValid() || __builtin_add_overflow(place.x, frame.PixelWidth() - 1, &moved.right) ||
            __builtin_add_overflow(place.y, frame.PixelHeight() - 1, &moved.bottom))
            return {};
        return {first, row_length, moved};
    }
};
